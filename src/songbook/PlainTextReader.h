#pragma once

#include "songbook/Reading.h"

namespace Songbook {

/// @return true for a text as PlainTextWriter writes it: it begins with such a head, or has songs
///         with a title each, and SongsApart between them
bool LooksLikePlainText(const QString& text);

/// Reads what PlainTextWriter wrote, back to the same songs. Below a head as it writes them the
/// text is taken as it is; a song whose head somebody changed is read as any text with chords is
/// (ChordTextReader). Reads Notas and Notas_Mais.
///
/// What a text cannot hold: there is one version of each song, which comes back as both; a line
/// break is CR LF; themes with "; " in their names come back as two; a category is one of the two;
/// a key whose name is none of a note comes back as the note that it means.
/// @param name  what a song without a title is called
Reading ReadPlainText(const QString& text, const QString& name);

} // namespace Songbook
