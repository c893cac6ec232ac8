#include "store/shelf/SongNames.h"

#include "store/text/Collation.h"

#include <algorithm>

void SongNames::Put(SongTable::Place place, const SongRow::Text& title)
{
    if (place == Places())
        m_hashes.emplace_back();
    Hash& known = m_hashes[place];
    const Hash hash = title ? Hash(Collation::Shared().HashOf(*title)) : std::nullopt;
    if (hash == known)
        return;
    if (known)
        Forget(*known, place);
    if (hash)
        m_places.emplace(*hash, place);
    known = hash;
}

void SongNames::Forget(std::size_t hash, SongTable::Place place)
{
    const auto [from, to] = m_places.equal_range(hash);
    const auto entry =
        std::find_if(from, to, [place](const auto& known) { return known.second == place; });
    if (entry != to)
        m_places.erase(entry);
}

std::vector<SongTable::Place> SongNames::Candidates(std::string_view title) const
{
    std::vector<SongTable::Place> places;
    const auto [from, to] = m_places.equal_range(Collation::Shared().HashOf(title));
    for (auto entry = from; entry != to; ++entry)
        places.push_back(entry->second);
    return places;
}

std::size_t SongNames::Size() const noexcept
{
    constexpr std::size_t Node = 4 * sizeof(void*);
    return m_places.size() * Node + m_hashes.size() * sizeof(Hash);
}
