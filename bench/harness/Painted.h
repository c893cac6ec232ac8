#pragma once

#include "harness/Rounds.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

/// Counts how often a widget is painted.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget& widget)
        : m_widget(widget)
    {
        widget.installEventFilter(this);
    }

    /// Lets everything that waits happen until the widget was painted after the last call of
    /// Forget(). A widget that is not painted at all is fatal: there would be nothing to measure.
    void Await()
    {
        constexpr int Enough = 10000;
        for (int i = 0; i < Enough; ++i) {
            QCoreApplication::processEvents();
            if (m_count > 0)
                return;
        }
        qFatal("%s was not painted", qPrintable(m_widget.objectName()));
    }

    void Forget() { m_count = 0; }

    /// Lets everything that waits happen.
    static void Settle()
    {
        for (int i = 0; i < 5; ++i) {
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }

    /// @return how long an action takes to what the user sees of it
    template <typename Action>
    Nanoseconds UntilPainted(Action&& action)
    {
        Settle();
        Forget();
        return Timed([&] {
            action();
            Await();
        });
    }

    /// @param whole  the widget that is painted again with all that lies in it
    /// @return how long that takes while nothing else changes
    Nanoseconds Bare(QWidget& whole)
    {
        Settle();
        Forget();
        const Nanoseconds time = Timed([&] { whole.repaint(); });
        if (m_count == 0)
            qFatal("%s was not painted", qPrintable(whole.objectName()));
        return time;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++m_count;
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget& m_widget;
    int m_count = 0;
};
