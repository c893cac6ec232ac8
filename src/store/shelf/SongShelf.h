#pragma once

#include "store/Recordset.h"
#include "store/shelf/ChangeWatch.h"
#include "store/shelf/SameSong.h"
#include "store/shelf/SongBases.h"
#include "store/shelf/SongLinks.h"
#include "store/shelf/SongLyrics.h"
#include "store/shelf/SongNames.h"
#include "store/shelf/SongSearch.h"
#include "store/shelf/SongTable.h"
#include "store/shelf/SongThemes.h"
#include "store/shelf/ThemeNames.h"

#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class SongView;
struct SongTexts;
class Statement;
class StatementCache;
struct sqlite3;

/// The songs of the open catalogue in memory, so that a search answers while its letters are being
/// typed. It gives what SQLite would, or nothing at all: each search first looks whether this
/// connection or another program has changed anything since.
///
/// The small columns and the links are read by the first search. What else searches need follows in
/// idle moments after it, a few milliseconds at a time, or is done by the first search that needs
/// it: titles and references are folded, the orders of the suggestions sorted, the lyrics read.
class SongShelf
{
public:
    /// Bytes that all of it may take. Without room for the lyrics SQLite answers what concerns
    /// them, without room for the songs it answers all.
    static constexpr std::size_t LargestSize = std::size_t{320} * 1024 * 1024;

    /// @param database, statements  outlive the shelf
    /// @param largestSize           bytes
    SongShelf(sqlite3* database, StatementCache& statements, std::size_t largestSize = LargestSize);
    ~SongShelf();
    SongShelf(const SongShelf&) = delete;
    SongShelf& operator=(const SongShelf&) = delete;

    /// @return the rows, or nullptr where SQLite has to answer
    /// @throws RuntimeError StoreFailure when the catalogue cannot be looked at
    std::shared_ptr<const Recordset::Rows> Answer(const SongSearch& search);

    /// As Answer(search): the IDs of the songs that are the same, in their order.
    std::shared_ptr<const Recordset::Rows> Answer(const SameSong& song);

    /// As Answer(search): the IDs of the themes that have the name, in their order.
    std::shared_ptr<const Recordset::Rows> Answer(const SameTheme& theme);

    /// As Answer(search): the names of the song's themes, in the order of their IDs.
    std::shared_ptr<const Recordset::Rows> Answer(const SongThemes& themes);

    /// To be called before a statement that changes rows: texts that results still show are read
    /// before they go.
    void BeforeChange(const Syntax::Statement& statement);

    /// Prepares a piece of what searches need, or reads lyrics for some milliseconds.
    /// @return true when there is more to do
    bool ReadAhead(int milliseconds);

    /// @return bytes taken, about.
    std::size_t Size() const noexcept;

private:
    enum class Lyrics { Partly, All, None };

    bool Refresh();
    bool IsUpToDate();
    bool AreThemesUpToDate();
    bool RefreshThemes();
    bool LoadThemes();
    bool RefreshTheme(qint64 id);
    bool StayInBounds();
    SongBases& Bases(SongSearch::Field field);
    void ReadBases(SongSearch::Field field);
    std::optional<std::function<void()>> NextToPrepare();
    bool RefreshRows();
    void SeeVersion();
    bool IsVersionSeen() const;
    unsigned PagerVersion() const;
    bool RefreshSong(qint64 id);
    void RefreshLink(qint64 row);
    bool Load();
    bool LoadSongs(SongTable& songs);
    void LoadLinks(SongLinks& links);
    bool ReadLyrics(std::optional<int> milliseconds);
    void ReadLyric(SongTable::Place place);
    void PutLyric(SongTable::Place place, const Statement& statement, int column);
    void DropLyrics(Lyrics state);
    void Clear();
    void ReadWhenIdle();
    std::vector<const SongRow*> Find(const SongSearch& search);
    std::vector<char> Candidates(const SongSearch& search);
    void KeepIds(std::vector<char>& marks, const std::vector<qint64>& ids) const;
    void KeepMatches(std::vector<char>& marks, const SongBases& bases, const Like& like,
                     SongRow::Text SongRow::*text) const;
    std::shared_ptr<const Recordset::Rows> Show(const SongSearch& search,
                                                std::vector<const SongRow*> rows);
    std::optional<SongTexts> TextsOf(qint64 id);
    std::vector<std::shared_ptr<SongView>> Views() const;

    sqlite3* m_database;
    StatementCache& m_statements;
    const std::size_t m_largestSize;
    ChangeWatch m_watch;
    unsigned m_pagerVersion = 0; ///< when the version was seen last
    bool m_isFit = false;        ///< holds songs that searches may be answered from
    SongTable m_songs;
    SongLinks m_links;
    SongBases m_titles; ///< both as far as they were asked for
    SongBases m_references;
    SongNames m_names;        ///< as far as they were asked for
    ThemeNames m_themes;      ///< once they were asked for
    bool m_themesFit = false; ///< as m_isFit
    SongLyrics m_lyrics;
    Lyrics m_lyricsState = Lyrics::Partly; ///< None: they do not fit here
    SongTable::Place m_lyricsTo = 0;       ///< place from which on lyrics are not read yet
    QTimer m_idle;
    std::vector<std::weak_ptr<SongView>> m_views; ///< that may still ask for texts
};
