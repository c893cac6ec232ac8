#pragma once

#include <QApplication>
#include <QFocusEvent>
#include <QWidget>

#include <utility>

/// Whose turn it is within a form. Another window, a menu or an open list only borrows the keyboard
/// and gives it back to the control that had it: that control neither loses nor gets the focus.
class FocusTurn
{
public:
    FocusTurn() = default;
    Q_DISABLE_COPY_MOVE(FocusTurn)

    /// A control that is being destroyed while it has the focus still tells everybody that the
    /// focus goes. Its own part is gone by then, and with it this turn: it must not listen any
    /// more.
    ~FocusTurn() { QObject::disconnect(m_following); }

    /// Calls lost() when the focus goes on to another control of the form without an event.
    /// @param control  whose turn this is, and which owns it
    template <typename Lost>
    void Follow(QWidget& control, Lost lost)
    {
        m_following = QObject::connect(qApp, &QApplication::focusChanged, &control,
                                       [this, &control, lost](QWidget*, const QWidget* now) {
                                           if (GoneTo(control, now))
                                               lost();
                                       });
    }

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

private:
    /// The focus went on while another window had the keyboard, for which there is no event.
    /// @param now  what has the focus. @return whether the control has lost it to that
    bool GoneTo(const QWidget& control, const QWidget* now)
    {
        if (!m_has || !now || now == &control || now->window() != control.window())
            return false;
        m_has = false;
        return true;
    }

    QMetaObject::Connection m_following;
    bool m_has = false;
};
