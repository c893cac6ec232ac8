#pragma once

#include "store/shelf/SongTable.h"
#include "store/text/ByteSearch.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// The bases (Fold::Bases) of one column of all songs, one behind the other: a search runs through
/// them as through one text and touches no song that it does not find.
class SongBases
{
public:
    /// Sets the text of the song at a place; nothing for a song without one. A new place comes
    /// right behind the last one.
    void Put(SongTable::Place place, const SongRow::Text& text);

    /// @return how many places were put.
    SongTable::Place Places() const noexcept
    {
        return static_cast<SongTable::Place>(m_entries.size());
    }

    /// @return the bases of a place that was put; empty for a song without a text
    std::string_view At(SongTable::Place place) const;

    /// Takes away the marks of the songs whose text does not hold the needle.
    /// @param marks  one for each place
    void Keep(std::vector<char>& marks, const ByteSearch& needle) const;

    /// Takes away the marks of the songs whose text does not begin so.
    /// @param marks  one for each place
    /// @param start  bases, at least one
    void KeepStarts(std::vector<char>& marks, std::string_view start) const;

    /// @return bytes taken, about.
    std::size_t Size() const noexcept;

private:
    static constexpr std::size_t NoText = std::string::npos;

    struct Entry
    {
        std::size_t at = NoText; ///< in m_text
        std::size_t length = 0;
    };

    /// Where a text begins, and whose it is or was.
    struct Start
    {
        std::size_t at;
        SongTable::Place place;
    };

    std::string m_text;
    std::vector<Entry> m_entries; ///< by place
    std::vector<Start> m_starts;  ///< in the order of m_text; a replaced text keeps its own
};
