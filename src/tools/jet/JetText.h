#pragma once

#include "tools/jet/Libmdb.h"

#include <string>
#include <string_view>

namespace JetText {

/// Gathers a long text from the pages that it lies on. Reads into the file's second page buffer.
/// @param header  what the row holds of it: length, pointer, and a short text itself
/// @return its bytes as they are stored
/// @throws JetTrouble when they are not as many as the header says, or lie elsewhere
std::string Gather(MdbHandle& file, std::string_view header);

/// @param stored  a text of Jet 4, whose letters of one byte may have been packed
/// @return it in UTF-16, little-endian
/// @throws JetTrouble
std::string Unpack(std::string_view stored);

} // namespace JetText
