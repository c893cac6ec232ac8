#pragma once

#include "songbook/Reading.h"

namespace Songbook {

/// Shifts the chords of a sheet as the viewer does. What a shift by the viewer would make vanish
/// ("b9" outside of brackets) is respelled before, and a chord stays in its column where the one
/// before it leaves room. Reads Notas and Notas_Mais.
/// @param text       lines separated by CR LF
/// @param semitones  -12 to +12; 0 leaves the text as it is
/// @param remarks    receives the words among chords that could not be shifted
QString TransposedSheet(const QString& text, int semitones, Remarks& remarks);

/// @return the song with both texts and its key shifted, as TransposedSheet tells
ExchangeSong TransposedSong(const ExchangeSong& song, int semitones, Remarks& remarks);

} // namespace Songbook
