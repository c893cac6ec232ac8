#pragma once

#include "store/shelf/SongTable.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

/// Which themes the songs are linked to.
class SongLinks
{
public:
    using Number = std::optional<qint64>;

    /// Adds a link behind the last one. @param row  its place in the link table, ever growing
    void Add(qint64 row, Number song, Number theme);

    /// Puts a link in the place of the one that had its row.
    void Put(qint64 row, Number song, Number theme);
    void Remove(qint64 row);

    /// @param themes  sorted; nothing for any theme
    /// @return a mark for each place of songs: 1 where a link exists
    std::vector<char> Marks(const SongTable& songs,
                            const std::optional<std::vector<qint64>>& themes);

    /// @param songs  that the place belongs to
    /// @return the theme of each link of the song at a place, the smallest first; valid until
    ///         links or places change
    std::span<const qint64> ThemesAt(const SongTable& songs, SongTable::Place place);

    /// To be called when songs have got other places.
    void ForgetPlaces()
    {
        m_places.clear();
        m_linked.clear();
        m_themeStarts.clear();
    }

    /// @return bytes taken, about.
    std::size_t Size() const noexcept;

private:
    struct Link
    {
        qint64 row = 0;
        Number song;
        Number theme;
    };

    void FindPlaces(const SongTable& songs);
    void SortThemes(const SongTable& songs);

    std::vector<Link> m_links;              ///< in the order of their rows
    std::vector<SongTable::Place> m_places; ///< of their songs; empty when not known
    std::vector<char> m_linked;   ///< the marks for any theme, known as long as the places are
    std::vector<qint64> m_themes; ///< of the links, one song's behind the other's
    std::vector<std::uint32_t> m_themeStarts; ///< by place, and the end; empty when not known
};
