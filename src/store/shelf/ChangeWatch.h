#pragma once

#include "store/dialect/Syntax.h"

#include <vector>

struct sqlite3;

/// Notes what changes in the catalogue's songs, links and themes: row by row what this connection
/// writes, as a whole what another one does.
class ChangeWatch
{
public:
    /// @param database  outlives the watch
    explicit ChangeWatch(sqlite3* database);
    ~ChangeWatch();
    ChangeWatch(const ChangeWatch&) = delete;
    ChangeWatch& operator=(const ChangeWatch&) = delete;

    /// To be called before a statement that changes rows: SQLite tells of no row when a table is
    /// emptied at once.
    void Announce(const Syntax::Statement& statement);

    /// Looks whether another connection has changed anything, which it tells once.
    /// @param version  PRAGMA data_version
    void SeeVersion(qint64 version);

    /// @return true when nothing is known about the changes but that there were some.
    bool IsEverythingNew() const noexcept { return m_everything; }

    /// The rows of MUSICA and TEMA_MUSICA that were written or deleted, some more than once.
    const std::vector<qint64>& Songs() const noexcept { return m_songs; }
    const std::vector<qint64>& Links() const noexcept { return m_links; }

    /// As IsEverythingNew, of TEMA.
    bool AreThemesNew() const noexcept { return m_allThemes; }
    /// The rows of TEMA that were written or deleted.
    const std::vector<qint64>& Themes() const noexcept { return m_themes; }

    /// Everything noted of songs and links has been seen to.
    void Forget();
    /// Everything noted of themes has been seen to.
    void ForgetThemes();

    /// Nothing that is known counts any more.
    void Distrust() noexcept { m_everything = m_allThemes = true; }

private:
    void NoteRow(const char* table, qint64 row);

    /// An import changes so many rows that reading all of them again is less work.
    static constexpr std::size_t MostRows = 2000;

    sqlite3* m_database;
    qint64 m_version = -1;
    bool m_everything = true;
    std::vector<qint64> m_songs;
    std::vector<qint64> m_links;
    bool m_allThemes = true;
    std::vector<qint64> m_themes;
};
