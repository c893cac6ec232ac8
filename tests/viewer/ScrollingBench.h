#pragma once

#include "Ticks.h"

#include <QProgressBar>
#include <QScrollBar>

/// @return how far the second version is scrolled, in pixels
inline int Shown(const QPointer<frmVisualizar>& viewer)
{
    return Box(viewer, 2)->verticalScrollBar()->value();
}

/// @return the last position that the viewer has noted for it, in pixels
inline int Limit(const QPointer<frmVisualizar>& viewer)
{
    return Box(viewer, 2)->property("Tag").toString().toInt();
}

inline void Press(const QPointer<frmVisualizar>& viewer, Qt::Key key, int times = 1)
{
    for (int i = 0; i < times; ++i)
        QTest::keyClick(viewer.data(), key);
}

/// @return the period of scrolling by itself, in milliseconds as noted
inline QString Speed(const QPointer<frmVisualizar>& viewer)
{
    return In<QTimer>(viewer, "TimerRolagem")->property("Tag").toString();
}

/// @return the speed that is shown, 1 to 16
inline int Level(const QPointer<frmVisualizar>& viewer)
{
    return In<QProgressBar>(viewer, "ProgressBarRolagem")->value();
}

/// @return whether the sheet scrolls by itself
inline bool Runs(const QPointer<frmVisualizar>& viewer)
{
    return In<QTimer>(viewer, "TimerRolagem")->isActive();
}
