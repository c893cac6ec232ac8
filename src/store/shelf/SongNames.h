#pragma once

#include "store/shelf/SongTable.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

/// Finds the songs that may have a title, without looking at all of them: titles that are equal in
/// the catalogue's order share an entry.
class SongNames
{
public:
    /// Sets the title of the song at a place; nothing for a song without one. A new place comes
    /// right behind the last one.
    void Put(SongTable::Place place, const SongRow::Text& title);

    /// @return how many places were put.
    SongTable::Place Places() const noexcept
    {
        return static_cast<SongTable::Place>(m_hashes.size());
    }

    /// @return places whose title may equal this one, in no order; every place that does is among
    ///         them
    std::vector<SongTable::Place> Candidates(std::string_view title) const;

    /// @return bytes taken, about.
    std::size_t Size() const noexcept;

private:
    using Hash = std::optional<std::size_t>;

    void Forget(std::size_t hash, SongTable::Place place);

    std::unordered_multimap<std::size_t, SongTable::Place> m_places; ///< by the title's hash
    std::vector<Hash> m_hashes;                                      ///< by place
};
