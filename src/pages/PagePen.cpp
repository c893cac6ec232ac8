#include "pages/PagePen.h"

#include <QFontMetricsF>

namespace Pages {

void PagePen::Text(double x, double baseline, const QString& text, const QFont& font,
                   const QColor& colour)
{
    m_painter.setFont(font);
    m_painter.setPen(colour);
    m_painter.drawText(QPointF(x * Unit, baseline * Unit), text);
}

void PagePen::TextBefore(double x, double baseline, const QString& text, const QFont& font,
                         const QColor& colour)
{
    Text(x - WidthOf(text, font), baseline, text, font, colour);
}

double PagePen::WidthOf(const QString& text, const QFont& font) const
{
    return QFontMetricsF(font, m_painter.device()).horizontalAdvance(text) / Unit;
}

QString PagePen::Elided(const QString& text, const QFont& font, double width) const
{
    return QFontMetricsF(font, m_painter.device()).elidedText(text, Qt::ElideRight, width * Unit);
}

QFont PagePen::Fitted(const QString& text, QFont font, double width, double smallest) const
{
    constexpr double Step = 0.5;
    while (font.pointSizeF() - Step >= smallest && WidthOf(text, font) > width)
        font.setPointSizeF(font.pointSizeF() - Step);
    return font;
}

void PagePen::Line(double x1, double y1, double x2, double y2, double width, const QColor& colour)
{
    m_painter.setPen(QPen(colour, width * Unit));
    m_painter.drawLine(QPointF(x1 * Unit, y1 * Unit), QPointF(x2 * Unit, y2 * Unit));
}

void PagePen::Box(double x, double y, double width, double height, const QColor& colour)
{
    m_painter.fillRect(QRectF(x * Unit, y * Unit, width * Unit, height * Unit), colour);
}

} // namespace Pages
