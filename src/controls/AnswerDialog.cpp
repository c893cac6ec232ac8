#include "controls/AnswerDialog.h"

#include "controls/HeldKeys.h"
#include "controls/Resposta_Mensagem.h"

#include <QAbstractButton>
#include <QKeyEvent>

AnswerDialog::AnswerDialog(QWidget* parent)
    : QDialog(parent)
{
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

void AnswerDialog::keyPressEvent(QKeyEvent* event)
{
    auto* cancel = findChild<QAbstractButton*>(u"cmdCancelar"_qs);
    if (event->key() == Qt::Key_Escape && cancel)
        cancel->click();
    else
        QDialog::keyPressEvent(event);
}

void AnswerDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!m_heldKeys) // not before: now the dialog has all its buttons
        m_heldKeys = new HeldKeys(*this, HeldKeys::EveryKey);
}

void AnswerDialog::Answer(int answer)
{
    Funcoes::Resposta_Mensagem = static_cast<std::int16_t>(answer);
    accept();
}
