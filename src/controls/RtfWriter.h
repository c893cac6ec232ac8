#pragma once

#include "controls/RtfDocument.h"

namespace Rtf {

/// @return an RTF document that Read turns back into document (only CR in its text is lost, and
///         what no font table can hold in its font's name)
QString Write(const Document& document);

} // namespace Rtf
