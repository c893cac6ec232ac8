#pragma once

#include "mld/ExchangeSong.h"

namespace Songbook {

/// Writes a song as plain text: a head of lines such as "Tom: G", a blank line, the text as it is.
/// @param version  1 or 2
/// @return lines ended by CR LF
QString WritePlainText(const ExchangeSong& song, int version);

/// @return the line that stands between songs of one text, without its end. No sheet has such a
///         line, and it is no chord line
const QString& SongsApart();

} // namespace Songbook
