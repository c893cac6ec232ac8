#pragma once

#include "artwork/VectorPicture.h"

#include <QByteArray>
#include <QColor>
#include <QString>

class QApplication;
class QIcon;

/// The program's one visual language: every form takes its fonts, colours and distances from here.
/// It comes light and dark, as the desktop is. Forms read colours from their palette; what is
/// always light (a song's white sheet, the splash) takes the constants below.
namespace Appearance {

// Distances in logical pixels.
constexpr int SmallSpacing = 4; ///< a label and the control it belongs to
constexpr int Spacing = 10;     ///< one control and the next
constexpr int Margin = 16;      ///< the edge of a form or panel and its content

/// The text size of forms in points.
constexpr int TextPoints = 11;

// Colours on a light ground.

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

/// Gives the program its look: dark where the application's palette, which is the desktop's at the
/// start, has a dark ground, light otherwise.
void Apply(QApplication& application);

/// @return whether the look that was applied last is the dark one; false before the first
bool IsDark();

/// @param path  a drawing in the colours of a light ground
/// @return the drawing in the colours of the look that was applied last; not valid without such a
///         file
VectorPicture Drawing(const QString& path);

/// @param path  a drawing in the colours of a light ground
/// @return an icon that draws it as Drawing gives it, sharp at every size and scale
QIcon Icon(const QString& path);

} // namespace Appearance
