#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmMensagem2;
}

/// Asks what to do with a stored setlist. Each button leaves its answer in
/// Funcoes::Resposta_Mensagem and closes the dialog; Esc is "Cancelar". Closed by its title bar, it
/// leaves the answer as it was.
class frmMensagem2 : public QDialog
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

    /// Shows the dialog over a form until it is closed. What was changed so far is committed first.
    /// @throws RuntimeError StoreFailure when that fails; nothing is shown then
    static void Mostra(QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    void cmdAbrir_Click();
    void cmdEditar_Click();
    void cmdCopiar_Click();
    void cmdExcluir_Click();
    void cmdCancelar_Click();
    void Responde(int resposta);

    std::unique_ptr<Ui::frmMensagem2> ui;
};
