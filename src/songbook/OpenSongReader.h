#pragma once

#include "songbook/Reading.h"
#include "songbook/XmlTree.h"

namespace Songbook {

/// Reads an OpenSong document: fields as elements, the lyrics as one text whose lines tell by
/// their first sign what they are: "." chords, " " lyrics, "[" a part, ";" a comment, a digit the
/// verse of a part that has its chords once. Such verses are written out one after the other, each
/// with the chords. Reads Notas and Notas_Mais.
/// @param song  the element of the song
/// @param name  what a song without a title is called
Reading ReadOpenSong(const XmlNode& song, const QString& name);

} // namespace Songbook
