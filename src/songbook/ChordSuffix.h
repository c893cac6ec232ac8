#pragma once

#include <QString>

#include <optional>

namespace Songbook {

/// Respells what follows a chord's root so that a chord line may hold it: maj7 and 7M become "7+",
/// dim "º", add9 "(9)", and every accidental goes into brackets of its own, since outside of them
/// it would be taken for part of a note's name.
/// @param suffix  without root and bass
/// @return nothing when some part of it belongs to no chord
std::optional<QString> SpellSuffix(QStringView suffix);

} // namespace Songbook
