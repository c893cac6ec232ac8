#include "store/shelf/SongLinks.h"

#include <algorithm>
#include <numeric>

void SongLinks::Add(qint64 row, Number song, Number theme)
{
    ForgetPlaces();
    m_links.push_back({row, song, theme});
}

void SongLinks::Put(qint64 row, Number song, Number theme)
{
    Remove(row);
    const auto place =
        std::lower_bound(m_links.begin(), m_links.end(), row,
                         [](const Link& link, qint64 wanted) { return link.row < wanted; });
    m_links.insert(place, {row, song, theme});
}

void SongLinks::Remove(qint64 row)
{
    ForgetPlaces();
    const auto found =
        std::lower_bound(m_links.begin(), m_links.end(), row,
                         [](const Link& link, qint64 wanted) { return link.row < wanted; });
    if (found != m_links.end() && found->row == row)
        m_links.erase(found);
}

void SongLinks::FindPlaces(const SongTable& songs)
{
    m_places.clear();
    m_places.reserve(m_links.size());
    m_linked.assign(songs.Places(), 0);
    for (const Link& link : m_links) {
        m_places.push_back(link.song ? songs.PlaceOf(*link.song) : SongTable::Nowhere);
        if (m_places.back() != SongTable::Nowhere)
            m_linked[m_places.back()] = 1;
    }
}

std::vector<char> SongLinks::Marks(const SongTable& songs,
                                   const std::optional<std::vector<qint64>>& themes)
{
    if (m_places.size() != m_links.size() || m_linked.size() != songs.Places())
        FindPlaces(songs);
    if (!themes)
        return m_linked;
    std::vector<char> marks(songs.Places(), 0);
    for (std::size_t i = 0; i < m_links.size(); ++i) {
        if (m_places[i] != SongTable::Nowhere && m_links[i].theme &&
            std::binary_search(themes->begin(), themes->end(), *m_links[i].theme))
            marks[m_places[i]] = 1;
    }
    return marks;
}

std::span<const qint64> SongLinks::ThemesAt(const SongTable& songs, SongTable::Place place)
{
    if (m_themeStarts.size() != std::size_t{songs.Places()} + 1)
        SortThemes(songs);
    const std::span<const qint64> themes(m_themes);
    return themes.subspan(m_themeStarts[place], m_themeStarts[place + 1] - m_themeStarts[place]);
}

/// Lays the themes of all links one song's behind the other's, each in order.
void SongLinks::SortThemes(const SongTable& songs)
{
    if (m_places.size() != m_links.size() || m_linked.size() != songs.Places())
        FindPlaces(songs);
    const auto counts = [this](std::size_t link) {
        return m_places[link] != SongTable::Nowhere && m_links[link].theme;
    };
    m_themeStarts.assign(std::size_t{songs.Places()} + 1, 0);
    for (std::size_t i = 0; i < m_links.size(); ++i) {
        if (counts(i))
            ++m_themeStarts[m_places[i] + 1];
    }
    std::partial_sum(m_themeStarts.begin(), m_themeStarts.end(), m_themeStarts.begin());
    m_themes.resize(m_themeStarts.back());
    std::vector<std::uint32_t> next(m_themeStarts);
    for (std::size_t i = 0; i < m_links.size(); ++i) {
        if (counts(i))
            m_themes[next[m_places[i]]++] = *m_links[i].theme;
    }
    for (std::size_t place = 0; place + 1 < m_themeStarts.size(); ++place)
        std::sort(m_themes.begin() + m_themeStarts[place],
                  m_themes.begin() + m_themeStarts[place + 1]);
}

std::size_t SongLinks::Size() const noexcept
{
    return m_links.size() * (sizeof(Link) + sizeof(SongTable::Place)) + m_linked.size() +
           m_themes.size() * sizeof(qint64) + m_themeStarts.size() * sizeof(std::uint32_t);
}
