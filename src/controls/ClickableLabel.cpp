#include "controls/ClickableLabel.h"

#include "controls/AccessibleControls.h"
#include "controls/FocusRing.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace {

/// @return a button; a tab, when the label is one of several of which one is chosen
QAccessibleInterface* Accessible(const QString& type, QObject* object)
{
    auto* label = qobject_cast<ClickableLabel*>(object);
    if (!label || type != QLatin1String(ClickableLabel::staticMetaObject.className()))
        return nullptr;
    return new AccessiblePressable(label, [label] { emit label->clicked(); });
}

} // namespace

ClickableLabel::ClickableLabel(QWidget* parent)
    : ClickableLabel(QString(), parent)
{
}

ClickableLabel::ClickableLabel(const QString& text, QWidget* parent)
    : QLabel(text, parent)
{
    QAccessible::installFactory(Accessible); // once, however often it is called
    setTextFormat(Qt::PlainText);
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover); // the style sheet marks it under the pointer
}

bool ClickableLabel::keyboardReachable() const
{
    return focusPolicy() != Qt::NoFocus;
}

void ClickableLabel::setKeyboardReachable(bool reachable)
{
    setFocusPolicy(reachable ? Qt::TabFocus : Qt::NoFocus);
}

bool ClickableLabel::event(QEvent* event)
{
    const bool done = QLabel::event(event);
    // QLabel makes an editor of a text that can have the focus: it would stand higher than that of
    // a label beside it.
    if (event->type() == QEvent::Polish && keyboardReachable()) {
        setTextInteractionFlags(Qt::NoTextInteraction); // takes the focus away, too
        setKeyboardReachable(true);
    }
    return done;
}

void ClickableLabel::focusInEvent(QFocusEvent* event)
{
    // Not QLabel's, which makes that editor.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    QFrame::focusInEvent(event);
    update();
}

void ClickableLabel::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->button() == Qt::LeftButton;
    event->accept();
}

void ClickableLabel::mouseReleaseEvent(QMouseEvent* event)
{
    const bool pressed = std::exchange(m_pressed, false);
    if (pressed && event->button() == Qt::LeftButton &&
        rect().contains(event->position().toPoint()))
        emit clicked();
}

void ClickableLabel::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (keyboardReachable() &&
        (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter))
        emit clicked();
    else
        QLabel::keyPressEvent(event);
}

void ClickableLabel::paintEvent(QPaintEvent* event)
{
    QLabel::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    FocusRing::Draw(painter, rect(), palette().color(foregroundRole()), 1);
}

void ClickableLabel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange) {
        if (isEnabled())
            setCursor(Qt::PointingHandCursor);
        else
            unsetCursor();
    }
    QLabel::changeEvent(event);
}
