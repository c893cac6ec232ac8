#pragma once

#include "mld/ExchangeSong.h"
#include "songbook/Reading.h"

namespace Songbook {

/// Changes what an exchange file would lose or what would make it unreadable as a whole: "&", "<"
/// and ">", the mark of a line break, control characters, and letters that its code page lacks.
/// Each becomes what is nearest to it, and chords stay over their syllables.
/// @param remarks  receives what was changed
ExchangeSong MadeExchangeable(const ExchangeSong& song, Remarks& remarks);

} // namespace Songbook
