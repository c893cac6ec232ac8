#pragma once

#include "controls/AnswerDialog.h"

#include <memory>

namespace Ui {
class frmMensagem2;
}

/// Asks what to do with a stored setlist. Each button leaves its answer in
/// Funcoes::Resposta_Mensagem and closes the dialog; Esc is "Cancelar". Closed by its title bar, it
/// leaves the answer as it was.
class frmMensagem2 : public AnswerDialog
{
    Q_OBJECT

public:
    // The answers; 0 means that none was given.
    static constexpr int Abrir = 1;
    static constexpr int Editar = 2;
    static constexpr int Copiar = 3;
    static constexpr int Cancelar = 4;
    static constexpr int Excluir = 5; ///< only after the user has confirmed it

    explicit frmMensagem2(QWidget* parent = nullptr);
    ~frmMensagem2() override;

    /// Shows the dialog over a form until it is closed. @throws as AnswerDialog::ShowModal
    static void Mostra(QWidget* parent) { ShowModal<frmMensagem2>(parent); }

private:
    void cmdAbrir_Click();
    void cmdEditar_Click();
    void cmdCopiar_Click();
    void cmdExcluir_Click();
    void cmdCancelar_Click();

    std::unique_ptr<Ui::frmMensagem2> ui;
};
