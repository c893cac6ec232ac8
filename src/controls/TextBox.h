#pragma once

#include "controls/FocusTurn.h"

#include <QLineEdit>

/// A one-line text box with the events that forms react to. What is pasted into it is one line.
class TextBox : public QLineEdit
{
    Q_OBJECT

public:
    explicit TextBox(QWidget* parent = nullptr);

signals:
    /// The text changed, by typing or by code.
    void Change();
    void DblClick();
    /// Before the box looks at the key; Enter once however long it is held.
    /// @param key  a Qt::Key; the keypad's Enter is Key_Return too
    void KeyDown(int key);
    /// The focus moves within the form; a switch to another window and back tells nothing.
    void GotFocus();
    void LostFocus();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    FocusTurn m_turn;
};
