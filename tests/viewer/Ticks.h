#pragma once

#include "ViewerBench.h"

#include <QTimer>
#include <QTimerEvent>

/// Lets a timer of the viewer tick without waiting. One that is off does not tick.
inline void Tick(const QWidget* viewer, const char* name, int times = 1)
{
    auto* timer = In<QTimer>(viewer, name);
    for (int i = 0; i < times && timer->isActive(); ++i) {
        QTimerEvent tick(timer->timerId());
        QCoreApplication::sendEvent(timer, &tick);
    }
}

/// @return a song that fills several screens: two lines a verse
inline QString LongSong(int verses)
{
    QString text;
    for (int i = 0; i < verses; ++i)
        text += u"C       G7\r\nSanto Deus, verso %1\r\n"_qs.arg(i);
    return text;
}
