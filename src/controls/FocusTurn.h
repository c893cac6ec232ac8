#pragma once

#include <QFocusEvent>
#include <QWidget>

#include <utility>

/// Whose turn it is within a form. Another window, a menu or an open list only borrows the keyboard
/// and gives it back to the control that had it: that control neither loses nor gets the focus.
class FocusTurn
{
public:
    /// @return whether the control gets the focus with this event
    bool In() { return !std::exchange(m_has, true); }

    /// @return whether the control loses the focus with this event
    bool Out(const QFocusEvent& event)
    {
        const Qt::FocusReason reason = event.reason();
        if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason)
            return false;
        return std::exchange(m_has, false);
    }

    /// The focus went on while another window had the keyboard, for which there is no event.
    /// @param now  what has the focus. @return whether the control has lost it to that
    bool GoneTo(const QWidget& control, const QWidget* now)
    {
        if (!m_has || !now || now == &control || now->window() != control.window())
            return false;
        m_has = false;
        return true;
    }

private:
    bool m_has = false;
};
