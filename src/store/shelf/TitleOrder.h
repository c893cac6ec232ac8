#pragma once

#include "store/shelf/SongRow.h"

#include <cstdint>
#include <vector>

/// The order of songs by their titles: no title first, then by the one collation, alike titles by
/// the song's ID.
namespace TitleOrder {

bool IsBefore(const SongRow& a, const SongRow& b);

/// @param rows  nullptr where a song is gone
/// @return the positions of the songs in their order
std::vector<std::uint32_t> Sorted(const std::vector<const SongRow*>& rows);

} // namespace TitleOrder
