#pragma once

#include <QDate>

#include <optional>
#include <string_view>

namespace StoredDate {

/// Reads a date as it lies in the catalogue.
/// @param text  yyyy-mm-dd; a time that another tool has put behind it (after a blank or a T) is
///              ignored
/// @return nothing when text is no date
std::optional<QDate> FromText(std::string_view text);

} // namespace StoredDate
