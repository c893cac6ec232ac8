#include "controls/TextBox.h"

#include "controls/OneLinePaste.h"

#include <QKeyEvent>
#include <QMouseEvent>

TextBox::TextBox(QWidget* parent)
    : QLineEdit(parent)
{
    new OneLinePaste(*this);
    connect(this, &QLineEdit::textChanged, this, [this] { emit Change(); });
    m_turn.Follow(*this, [this] { emit LostFocus(); });
}

void TextBox::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || !event->isAutoRepeat())
        emit KeyDown(enter ? int{Qt::Key_Return} : event->key());
    QLineEdit::keyPressEvent(event);
}

void TextBox::mouseDoubleClickEvent(QMouseEvent* event)
{
    QLineEdit::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton)
        emit DblClick();
}

void TextBox::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (m_turn.In())
        emit GotFocus();
}

void TextBox::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (m_turn.Out(*event))
        emit LostFocus();
}
