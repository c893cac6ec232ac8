#pragma once

#include "store/shelf/SongTable.h"

#include <string_view>
#include <unordered_map>
#include <vector>

/// Finds the songs that may have a title, without looking at all of them. Titles whose letters are
/// the same share an entry; those that only ICU can compare are always candidates.
class SongNames
{
public:
    /// Sets the title of the song at a place; nothing for a song without one. A new place comes
    /// right behind the last one.
    void Put(SongTable::Place place, const SongRow::Text& title);

    /// @return how many places were put.
    SongTable::Place Places() const noexcept { return m_places; }

    /// @return places whose title may equal this one, in no order, some twice; every place that
    ///         does is among them
    std::vector<SongTable::Place> Candidates(std::string_view title) const;

    /// @return bytes taken, about.
    std::size_t Size() const noexcept;

private:
    std::unordered_multimap<std::size_t, SongTable::Place> m_byLetters; ///< by a hash of them
    std::vector<SongTable::Place> m_others;
    SongTable::Place m_places = 0;
};
