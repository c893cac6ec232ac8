#pragma once

#include "controls/Handler.h"

#include <QDialog>
#include <QPointer>

class HeldKeys;

/// A fixed modal dialog that offers several things to do. Each of its buttons leaves a number in
/// Funcoes::Resposta_Mensagem and closes it; Esc presses its button cmdCancelar. Closed by its
/// title bar, it leaves the number as it was. A key held since before it opened answers nothing.
class AnswerDialog : public QDialog
{
    Q_OBJECT

public:
    /// Shows a dialog over a form until it is closed. What was changed so far is committed first.
    /// @throws RuntimeError StoreFailure when that fails; nothing is shown then
    template <typename Form>
    static void ShowModal(QWidget* parent)
    {
        const ModalScope scope;
        // It goes with the form below it, should that close meanwhile.
        const QPointer<Form> dialog = new Form(parent);
        dialog->exec();
        delete dialog;
    }

protected:
    explicit AnswerDialog(QWidget* parent);

    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

    /// Leaves the answer and closes the dialog.
    void Answer(int answer);

private:
    HeldKeys* m_heldKeys = nullptr;
};
