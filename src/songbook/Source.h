#pragma once

#include "songbook/Reading.h"

namespace Songbook {

/// What a source is, told by its content alone.
enum class SourceKind {
    ChordPro,
    OpenSong,
    OpenLyrics,
    ChordText, ///< plain text
    Exchange,  ///< our own exchange file
    Catalogue, ///< our own catalogue, or one in the Jet format
    Unknown,   ///< nothing that holds songs for us
};

/// One source as far as it was understood.
struct Source
{
    SourceKind kind = SourceKind::Unknown;
    Reading reading; ///< failed for Exchange, Catalogue and Unknown
};

/// Reads a song file of another program. Reads Notas and Notas_Mais.
/// @param bytes  the whole file; above LargestBook, or LargestSource for XML, it is refused
/// @param name   what a song without a title is called: the file's name without its ending
Source ReadSource(QByteArrayView bytes, const QString& name);

} // namespace Songbook
