#pragma once

#include "songbook/Reading.h"

namespace Songbook {

/// Reads plain text with rows of chords over rows of lyrics. Lines such as "Tom: G" at the top
/// describe the song; where none of them tells the title, a paragraph of one or two lines among
/// them is title and reference. Names of
/// parts ("[Refrão]", "Verse 2:") become headings. Reads Notas and Notas_Mais.
/// @param text  the whole source
/// @param name  what a song without a title is called
Reading ReadChordText(const QString& text, const QString& name);

} // namespace Songbook
