#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

/// Contrast as the accessibility guidelines measure it: 1 for equal colours, 21 for black on white.
namespace Contraste {

constexpr double Texto = 4.5;   ///< what a text needs against its ground
constexpr double Simbolo = 3.0; ///< what a mark needs against what is there without it

double Entre(const QColor& a, const QColor& b);

/// @param lugar  in the picture's logical pixels; only what lies inside counts
/// @return the ground of a place: the colour that most of its pixels have
QColor Fundo(const QImage& imagem, const QRect& lugar);

/// @return the highest contrast between the ground and any other pixel of a place: what is drawn
///         there, where edges are softened. 1 for an empty place
double Maior(const QImage& imagem, const QRect& lugar);

/// @return how many pixels differ between two pictures of one place by the contrast of a mark
int Marcados(const QImage& antes, const QImage& depois);

} // namespace Contraste
