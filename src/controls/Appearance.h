#pragma once

#include <QColor>
#include <QString>

class QApplication;

/// The program's one visual language: every form takes its fonts, colours and distances from here.
namespace Appearance {

// Distances in logical pixels.
constexpr int SmallSpacing = 4; ///< a label and the control it belongs to
constexpr int Spacing = 10;     ///< one control and the next
constexpr int Margin = 16;      ///< the edge of a form or panel and its content

/// The text size of forms in points.
constexpr int TextPoints = 11;

/// The one accent, also the colour of chords.
constexpr QColor Accent(0, 102, 204);
constexpr QColor Text(31, 35, 40);
/// Hints and counts.
constexpr QColor MutedText(91, 100, 112);
constexpr QColor Window(245, 246, 248);
/// What is typed into or chosen from.
constexpr QColor Surface(255, 255, 255);
constexpr QColor Border(205, 211, 218);

/// @return the family of texts: Calibri, where that is not installed Carlito, else the system's
QString TextFamily();

/// @return the family of chord sheets: Consolas, else Inconsolata, else DejaVu Sans Mono, else the
///         system's monospaced one
QString MonospacedFamily();

/// Gives the program its look. Light, whatever the desktop's palette is: the artwork and the blue
/// of the chords are drawn for a light ground.
void Apply(QApplication& application);

} // namespace Appearance
