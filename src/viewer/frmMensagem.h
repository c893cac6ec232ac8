#pragma once

#include "controls/AnswerDialog.h"

#include <memory>

namespace Ui {
class frmMensagem;
}

/// Asks what to do with what was typed into a song. Each button tells what it does while the
/// pointer is over it and when the focus comes to it, leaves its answer in
/// Funcoes::Resposta_Mensagem and closes the dialog; Esc is "Cancelar". Closed by its title bar, it
/// leaves the answer 0.
class frmMensagem : public AnswerDialog
{
    Q_OBJECT

public:
    // The answers; 0 means that none was given.
    static constexpr int Salvar = 1;        ///< save this version
    static constexpr int SalvarIgualar = 2; ///< make both versions equal and save
    static constexpr int NaoSalvar = 3;     ///< drop what was typed
    static constexpr int Cancelar = 4;      ///< go on typing

    explicit frmMensagem(QWidget* parent = nullptr);
    ~frmMensagem() override;

    /// Shows the dialog over a form until it is closed. @throws as AnswerDialog::ShowModal
    static void Mostra(QWidget* parent) { ShowModal<frmMensagem>(parent); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void Form_Load();
    void Prepara_Dicas();
    void cmdSalvar_Click();
    void cmdSalvarIgualar_Click();
    void cmdNaoSalvar_Click();
    void cmdCancelar_Click();

    std::unique_ptr<Ui::frmMensagem> ui;
};
