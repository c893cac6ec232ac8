#include "store/shelf/SongTriples.h"

#include <algorithm>

namespace {

/// Letters differ in their last five bits.
constexpr unsigned LetterBits = 5;
constexpr std::uint32_t LetterMask = (1u << LetterBits) - 1;
constexpr std::uint32_t TripleMask = (1u << (3 * LetterBits)) - 1;

} // namespace

/// Visits the number of the set that each run of three letters belongs to.
template <typename Visit>
void SongTriples::ForEachSet(std::string_view bases, Visit visit)
{
    std::uint32_t triple = 0;
    for (std::size_t i = 0; i < bases.size(); ++i) {
        triple = (triple << LetterBits) | (static_cast<unsigned char>(bases[i]) & LetterMask);
        if (i >= 2)
            visit(((triple & TripleMask) * 2654435761u) >> (32 - SetBits));
    }
}

void SongTriples::Reserve(SongTable::Place places)
{
    while (m_blocks.size() * BlockPlaces < places)
        m_blocks.push_back(std::make_unique<Block>());
}

void SongTriples::Put(SongTable::Place place, std::string_view bases)
{
    Block& block = *m_blocks[place / BlockPlaces];
    const Word bit = Bit(place);
    ForEachSet(bases, [&block, bit](std::uint32_t set) { block[set] |= bit; });
}

void SongTriples::Remove(SongTable::Place place)
{
    for (Word& word : *m_blocks[place / BlockPlaces])
        word &= ~Bit(place);
}

void SongTriples::Keep(std::vector<char>& marks, std::string_view needle) const
{
    std::vector<std::uint32_t> sets;
    ForEachSet(needle, [&sets](std::uint32_t set) { sets.push_back(set); });
    std::sort(sets.begin(), sets.end());
    sets.erase(std::unique(sets.begin(), sets.end()), sets.end());
    if (sets.empty())
        return;
    for (std::size_t first = 0; first < marks.size(); first += BlockPlaces) {
        const Block& block = *m_blocks[first / BlockPlaces];
        Word kept = ~Word{0};
        for (auto set = sets.begin(); set != sets.end() && kept != 0; ++set)
            kept &= block[*set];
        const std::size_t end = std::min<std::size_t>(first + BlockPlaces, marks.size());
        for (std::size_t place = first; place < end; ++place, kept >>= 1) {
            if ((kept & 1) == 0)
                marks[place] = 0;
        }
    }
}
