#pragma once

#include "mld/ExchangeSong.h"

namespace Songbook {

/// Writes a song as ChordPro that ReadChordPro takes back to the same song, with these exceptions:
/// a field without a value, and an empty title or reference, comes back as what stands for it in
/// an exchange file; title, reference and themes lose line breaks, tabs and the blanks around
/// them, and a theme of nothing else is left out; key and variation lose line breaks; in the texts
/// a lone CR or LF comes back as CR LF. Chords go into the line of their syllables; what the format
/// has no words for is kept in directives of our own, whose names begin with "x_" and which other
/// programs pass over. Reads Notas and Notas_Mais.
/// @return lines ended by LF, first the title
QString WriteChordPro(const ExchangeSong& song);

} // namespace Songbook
