#pragma once

#include "store/shelf/SongTable.h"
#include "store/shelf/SongTriples.h"
#include "store/text/Like.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The texts of the songs as searches compare them: the bases of all letters and, apart, the few
/// letters with accents, four bytes each.
class SongLyrics
{
public:
    /// Sets the text of the song at a place; nothing for a song without one.
    /// @return false for a text that has no room here: too long, or of too many kinds of accents
    bool Put(SongTable::Place place, const SongRow::Text& text);

    /// Takes away the marks of the songs whose text does not match; a song without one never does.
    /// @param marks  one for each place that room was made for
    void Keep(std::vector<char>& marks, const Like& like) const;

    /// Makes room for the songs up to a place; those that were not put have no text.
    void Reserve(SongTable::Place places);

    /// @return bytes taken, about.
    std::size_t Size() const noexcept;

    /// @return true when replaced texts take more room than they are worth.
    bool IsWasteful() const noexcept { return m_wasted > Size() / 4; }

private:
    struct Lyric
    {
        const char* bases = nullptr; ///< nullptr: no text
        const char* accents = nullptr;
        std::uint32_t basesLength = 0;
        std::uint32_t accentCount = 0;
    };

    /// An accented letter: its place in the bases above, the number of its accents below.
    using Packed = std::uint32_t;
    static constexpr int NumberBits = 8;

    bool Pack(std::string_view text);
    bool Matches(SongTable::Place place, const Like& like) const;
    bool IsSame(const Lyric& lyric) const;

    std::vector<Lyric> m_lyrics;
    SongTriples m_triples; ///< of the bases
    TextPool m_pool;
    std::size_t m_wasted = 0;
    std::vector<std::uint64_t> m_accents; ///< by their numbers
    std::unordered_map<std::uint64_t, Packed> m_numbers;

    std::string m_bases; ///< of the text put last
    std::string m_packed;
    std::vector<Fold::Accented> m_accented;
    mutable std::vector<Fold::Accented> m_read;
};
