#include "store/shelf/SongNames.h"

#include "store/text/Collation.h"

#include <functional>
#include <numeric>
#include <optional>
#include <string>

namespace {

/// @return a number that equal titles share; nothing for one that only ICU can compare
std::optional<std::size_t> HashOf(std::string_view title)
{
    std::string letters;
    if (!Collation::Shared().AppendLetters(letters, title))
        return std::nullopt;
    return std::hash<std::string>()(letters);
}

} // namespace

void SongNames::Put(SongTable::Place place, const SongRow::Text& title)
{
    if (place == m_places)
        ++m_places;
    if (!title)
        return;
    if (const auto hash = HashOf(*title))
        m_byLetters.emplace(*hash, place);
    else
        m_others.push_back(place);
}

std::vector<SongTable::Place> SongNames::Candidates(std::string_view title) const
{
    const auto hash = HashOf(title);
    if (!hash) {
        std::vector<SongTable::Place> all(m_places);
        std::iota(all.begin(), all.end(), SongTable::Place{0});
        return all;
    }
    std::vector<SongTable::Place> places = m_others;
    const auto [from, to] = m_byLetters.equal_range(*hash);
    for (auto entry = from; entry != to; ++entry)
        places.push_back(entry->second);
    return places;
}

std::size_t SongNames::Size() const noexcept
{
    constexpr std::size_t Node = 4 * sizeof(void*);
    return m_byLetters.size() * Node + m_others.size() * sizeof(SongTable::Place);
}
