#pragma once

#include "store/shelf/SongTable.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

/// Which runs of three letters the texts of the songs hold, as sets that may hold more. Most songs
/// that do not match are ruled out by it, 64 at a time: they lie side by side in one word for each
/// run, so a search looks at the few words of its own runs instead of at the texts.
class SongTriples
{
public:
    /// Makes room for the songs up to a place; those that were not put hold nothing.
    void Reserve(SongTable::Place places);

    /// Adds the runs of a text to a place that is reserved and holds nothing.
    /// @param bases  Fold::Bases of the text
    void Put(SongTable::Place place, std::string_view bases);

    /// Takes out what a place holds.
    void Remove(SongTable::Place place);

    /// Takes away the marks of the places whose text cannot hold the needle; none for a needle of
    /// less than three letters.
    /// @param marks   one for each place, at most as many as are reserved
    /// @param needle  bases
    void Keep(std::vector<char>& marks, std::string_view needle) const;

    /// @return bytes taken, about.
    std::size_t Size() const noexcept { return m_blocks.size() * sizeof(Block); }

private:
    /// A song of 2 KB has some 600 different runs: they fill a quarter of so many sets.
    static constexpr unsigned SetBits = 11;

    using Word = std::uint64_t;
    static constexpr SongTable::Place BlockPlaces = 64;

    /// So many songs, a bit for each in the word of each set.
    using Block = std::array<Word, std::size_t{1} << SetBits>;

    template <typename Visit>
    static void ForEachSet(std::string_view bases, Visit visit);

    static Word Bit(SongTable::Place place) { return Word{1} << (place % BlockPlaces); }

    std::vector<std::unique_ptr<Block>> m_blocks;
};
