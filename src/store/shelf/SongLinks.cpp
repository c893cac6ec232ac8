#include "store/shelf/SongLinks.h"

#include <algorithm>

void SongLinks::Add(qint64 row, Number song, Number theme)
{
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

std::size_t SongLinks::Size() const noexcept
{
    return m_links.size() * (sizeof(Link) + sizeof(SongTable::Place)) + m_linked.size();
}
