#pragma once

#include "songbook/Reading.h"

namespace Songbook {

/// Reads ChordPro: directives in braces, chords in brackets before the syllable they belong to.
/// Labelled parts and comments become headings, tablature and grids rows of their own; of our own
/// directives x_linha is a row exactly as it is, x_versao the beginning of the second version,
/// x_tom, x_variacao and x_categoria columns. Reads Notas and Notas_Mais.
/// @param text  the whole source
/// @param name  what a song without a title is called
Reading ReadChordPro(const QString& text, const QString& name);

/// @return true when text is ChordPro: it has a directive that the format knows, or chords in
///         brackets within a line
bool LooksLikeChordPro(const QString& text);

} // namespace Songbook
