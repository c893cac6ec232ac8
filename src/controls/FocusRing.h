#pragma once

#include <QColor>
#include <QPainter>
#include <QRect>

/// Draws the ring of the control that has the focus, just inside a place: solid, unlike the style's
/// own, which hardly shows on light ground.
/// @param width  in pixels
inline void DrawFocusRing(QPainter& painter, const QRect& place, const QColor& colour, int width)
{
    constexpr qreal Radius = 4.0; // pixels
    const qreal inset = width / 2.0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(place).adjusted(inset, inset, -inset, -inset), Radius, Radius);
    painter.restore();
}
