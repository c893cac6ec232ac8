#pragma once

#include "controls/RtfDocument.h"

/// Reads the subset of RTF that chord sheets are made of:
/// - \par breaks a line; CR and LF in the body do not. When the document ends with a line break,
///   exactly that one is dropped: it ends the last line and begins none.
/// - \b, \cf, \fs and \plain hold until changed or until their group ends.
/// - fonttbl, colortbl and deff are read for their meaning, never shown.
/// - \'hh (code page 1252), \u (with the fallbacks that \uc counts), \tab, \~ and \_ stand for
///   characters.
/// - One blank after a control word belongs to it. Unknown words are ignored, and groups without
///   text of the body.
/// - Any text is taken: what is missing or makes no sense is passed over, groups below a bounded
///   depth are ignored. The time is linear in the length.
namespace Rtf {

/// @param rtf  the document; characters beyond code page 1252 stand for themselves
Document Read(QStringView rtf);

} // namespace Rtf
