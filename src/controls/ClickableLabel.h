#pragma once

#include <QLabel>

/// A label that reacts to the left button. Its text is plain, its name for a screen reader the text
/// unless one was given.
class ClickableLabel : public QLabel
{
    Q_OBJECT
    Q_PROPERTY(bool keyboardReachable READ keyboardReachable WRITE setKeyboardReachable)

public:
    explicit ClickableLabel(QWidget* parent = nullptr);
    explicit ClickableLabel(const QString& text, QWidget* parent = nullptr);

    bool keyboardReachable() const;
    /// Lets Tab reach the label; Space and Enter click it then. Off at first.
    void setKeyboardReachable(bool reachable);

signals:
    void clicked();

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    bool m_pressed = false;
};
