#pragma once

#include "songbook/Reading.h"
#include "songbook/XmlTree.h"

namespace Songbook {

/// Reads an OpenLyrics document, of the versions 0.8 and 0.9: properties, then verses of lines with
/// chords among the words. A translated or transliterated verse follows with its language in the
/// heading. Reads Notas and Notas_Mais.
/// @param song  the element of the song
/// @param name  what a song without a title is called
Reading ReadOpenLyrics(const XmlNode& song, const QString& name);

} // namespace Songbook
