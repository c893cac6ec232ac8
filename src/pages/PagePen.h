#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QString>

namespace Pages {

/// The colour of chords, on paper as on the screen.
inline constexpr QColor ChordBlue(0, 102, 204);
inline constexpr QColor Ink(0x1A, 0x1A, 0x1A);
inline constexpr QColor Grey(0x60, 0x60, 0x60);
inline constexpr QColor Faint(0xB8, 0xC4, 0xD0);

/// Draws on a page in points from its left upper corner.
class PagePen
{
public:
    /// Of the device, in dots per inch: fine enough that letters stand where they belong.
    static constexpr int Resolution = 1200;

    explicit PagePen(QPainter& painter)
        : m_painter(painter)
    {
    }

    /// @param x, baseline  where the first letter stands
    void Text(double x, double baseline, const QString& text, const QFont& font,
              const QColor& colour);

    /// @param x  where the last letter ends
    void TextBefore(double x, double baseline, const QString& text, const QFont& font,
                    const QColor& colour);

    double WidthOf(const QString& text, const QFont& font) const;

    /// @return the text, cut with an ellipsis where it is wider than width
    QString Elided(const QString& text, const QFont& font, double width) const;

    /// @return the font, made smaller in small steps until the text is as narrow as width
    QFont Fitted(const QString& text, QFont font, double width, double smallest) const;

    void Line(double x1, double y1, double x2, double y2, double width, const QColor& colour);
    void Box(double x, double y, double width, double height, const QColor& colour);

private:
    static constexpr double Unit = Resolution / 72.0;

    QPainter& m_painter;
};

} // namespace Pages
