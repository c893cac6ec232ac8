#include "controls/AccessibleControls.h"

#include <QLabel>
#include <QVariant>
#include <QWidget>

#include <utility>

AccessiblePressable::AccessiblePressable(QWidget* control, std::function<void()> press)
    : QAccessibleWidget(control, QAccessible::Button)
    , m_press(std::move(press))
{
}

QAccessible::State AccessiblePressable::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    const QVariant chosen = widget()->property("escolhida");
    if (chosen.isValid()) {
        state.selectable = true;
        state.selected = chosen.toBool();
    }
    return state;
}

QAccessible::Role AccessiblePressable::role() const
{
    const bool isTab = widget()->property("escolhida").isValid();
    return isTab ? QAccessible::PageTab : QAccessible::Button;
}

QString AccessiblePressable::text(QAccessible::Text kind) const
{
    const QString text = QAccessibleWidget::text(kind);
    const auto* label = qobject_cast<const QLabel*>(widget());
    return kind == QAccessible::Name && text.isEmpty() && label ? label->text() : text;
}

QStringList AccessiblePressable::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (widget()->isEnabled())
        names.prepend(pressAction());
    return names;
}

void AccessiblePressable::doAction(const QString& name)
{
    if (name != pressAction())
        QAccessibleWidget::doAction(name);
    else if (widget()->isEnabled())
        m_press();
}
