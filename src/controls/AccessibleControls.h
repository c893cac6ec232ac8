#pragma once

#include <QAccessibleWidget>

#include <functional>

/// How a screen reader meets a control that is pressed and that Qt does not know: as a button or a
/// tab with a name and the action of pressing.
class AccessiblePressable : public QAccessibleWidget
{
public:
    /// @param press  what a click does; asked for only while the control is enabled
    AccessiblePressable(QWidget* control, std::function<void()> press);

    /// The tab that is in front, of those that have the property "escolhida" (bool), is selected.
    QAccessible::State state() const override;
    /// Asked for anew each time: a label may become a tab after a screen reader met it.
    QAccessible::Role role() const override;
    /// The name is the one that was given, else what the label reads.
    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

private:
    std::function<void()> m_press;
};

/// Pictures that only decorate, or stand where a button is missing for now, are pictures without a
/// name: a screen reader passes them over.
class AccessibleDecoration : public QAccessibleWidget
{
public:
    explicit AccessibleDecoration(QWidget* picture)
        : QAccessibleWidget(picture, QAccessible::Graphic)
    {
    }
};

/// @return a control of one class as a screen reader meets it; for QAccessible::installFactory,
///         which keeps it once, however often it is called
template <typename Control, typename Interface>
QAccessibleInterface* MakeAccessible(const QString&, QObject* object)
{
    auto* control = qobject_cast<Control*>(object);
    return control ? new Interface(control) : nullptr;
}

/// A form that is a window of its own, which Qt takes for a mere frame.
class AccessibleForm : public QAccessibleWidget
{
public:
    explicit AccessibleForm(QWidget* form)
        : QAccessibleWidget(form, QAccessible::Window)
    {
    }
};
