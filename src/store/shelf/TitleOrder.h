#pragma once

#include "store/shelf/SongRow.h"

#include <cstdint>
#include <vector>

/// The order of songs by their titles or another text: no text first, then by the one collation,
/// alike texts by the song's ID.
namespace TitleOrder {

/// What songs are ordered by.
enum class Key {
    Title,
    Reference,
    Label, ///< SongRow::Label, which every song has
};

bool IsBefore(const SongRow& a, const SongRow& b, Key key = Key::Title);

/// @param rows  nullptr where a song is gone
/// @return the positions of the songs in their order
std::vector<std::uint32_t> Sorted(const std::vector<const SongRow*>& rows, Key key = Key::Title);

/// Takes out, of songs in the order of their references, each whose reference is that of the one
/// before it: songs without one are alike.
void KeepEachReferenceOnce(std::vector<const SongRow*>& rows);

} // namespace TitleOrder
