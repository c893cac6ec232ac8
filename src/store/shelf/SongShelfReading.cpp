// The half of the shelf that reads the catalogue.

#include "store/shelf/SongShelf.h"
#include "store/shelf/SongView.h"
#include "store/sqlite/StatementCache.h"

#include <QElapsedTimer>

#include <sqlite3.h>

namespace {

constexpr char SmallColumns[] =
    "SELECT rowid, ID, CATEGORIA, CONTADOR, TITULO, REFERENCIA, TOM, VARIACAO FROM MUSICA";
/// True of every song; an index that holds all of these columns is there for it, so that no song
/// text is read past (data/schema.sql).
constexpr char EverySong[] = " WHERE typeof(ID) = 'integer'";
constexpr char ThemeColumns[] = "SELECT rowid, ID, DESCRICAO FROM TEMA";
constexpr char LinkColumns[] = "SELECT rowid, ID_MUSICA, ID_TEMA FROM TEMA_MUSICA";

/// Columns of one row. What lies in them in an unusual way, a number in letters or bytes of no
/// kind, compares in a way of SQLite's own: then the songs do not fit here.
class RowReader
{
public:
    explicit RowReader(const Statement& statement)
        : m_statement(statement)
    {
    }

    bool Fits() const noexcept { return m_fits; }

    SongRow::Number Number(int column)
    {
        const Statement::Kind kind = m_statement.ColumnKind(column);
        if (kind == Statement::Kind::Whole)
            return m_statement.Whole(column);
        m_fits &= kind == Statement::Kind::Null;
        return std::nullopt;
    }

    SongRow::Text Text(int column)
    {
        const Statement::Kind kind = m_statement.ColumnKind(column);
        if (kind == Statement::Kind::Text && !m_statement.IsBlob(column))
            return m_statement.Text(column);
        m_fits &= kind == Statement::Kind::Null;
        return std::nullopt;
    }

private:
    const Statement& m_statement;
    bool m_fits = true;
};

SongRow::Text Kept(TextPool& pool, const SongRow::Text& text)
{
    return text ? SongRow::Text(pool.Keep(*text)) : std::nullopt;
}

/// @return the song of the current row; nothing where it does not fit
std::optional<SongRow> ReadSong(const Statement& statement, TextPool& pool)
{
    RowReader reader(statement);
    SongRow song;
    song.id = statement.Whole(0);
    const SongRow::Number id = reader.Number(1);
    song.category = reader.Number(2);
    song.count = reader.Number(3);
    song.title = Kept(pool, reader.Text(4));
    song.reference = Kept(pool, reader.Text(5));
    song.key = Kept(pool, reader.Text(6));
    song.variation = Kept(pool, reader.Text(7));
    // A table that tells its rows apart by something else than ID is not ours.
    if (!reader.Fits() || id != song.id)
        return std::nullopt;
    return song;
}

/// @return a number to look links up by; a link to anything else leads nowhere
SongLinks::Number LinkNumber(const Statement& statement, int column)
{
    return RowReader(statement).Number(column);
}

/// @return false for one that compares in a way of SQLite's own
bool PutTheme(ThemeNames& themes, const Statement& statement)
{
    RowReader reader(statement);
    const SongRow::Number id = reader.Number(1);
    const SongRow::Text name = reader.Text(2);
    if (!reader.Fits() || id != statement.Whole(0))
        return false;
    themes.Put(*id, name);
    return true;
}

} // namespace

void SongShelf::SeeVersion()
{
    if (IsVersionSeen())
        return;
    Statement& statement = m_statements.Get("PRAGMA data_version");
    const StatementRun run(statement);
    m_watch.SeeVersion(statement.Step() ? statement.Whole(0) : 0);
    m_pagerVersion = PagerVersion();
}

/// Asking costs a statement, and an export or import would do so several times a song. While the
/// file is locked nobody else changes it; whether the lock is still the one of the last time is
/// told by the pager, whose version is another one as soon as it finds the file changed.
bool SongShelf::IsVersionSeen() const
{
    return sqlite3_txn_state(m_database, "main") != SQLITE_TXN_NONE &&
           m_pagerVersion == PagerVersion();
}

unsigned SongShelf::PagerVersion() const
{
    unsigned version = 0;
    sqlite3_file_control(m_database, "main", SQLITE_FCNTL_DATA_VERSION, &version);
    return version;
}

/// Brings what is known up to date. @return false where SQLite has to answer
bool SongShelf::Refresh()
{
    SeeVersion();
    const bool isKnown = !m_watch.IsEverythingNew() && (!m_isFit || RefreshRows());
    if (!isKnown)
        m_isFit = Load();
    m_watch.Forget();
    return StayInBounds();
}

/// Gives back what takes too much memory. @return false where SQLite has to answer
bool SongShelf::StayInBounds()
{
    if (m_isFit && Size() > m_largestSize)
        DropLyrics(Lyrics::None);
    if (Size() > m_largestSize)
        m_isFit = false;
    if (!m_isFit)
        Clear();
    return m_isFit;
}

/// @param field  Title or Reference
SongBases& SongShelf::Bases(SongSearch::Field field)
{
    return field == SongSearch::Field::Title ? m_titles : m_references;
}

/// Folds the titles or references that are not folded yet.
/// @param field  Title or Reference
void SongShelf::ReadBases(SongSearch::Field field)
{
    SongBases& bases = Bases(field);
    const auto text = field == SongSearch::Field::Title ? &SongRow::title : &SongRow::reference;
    for (SongTable::Place place = bases.Places(); place < m_songs.Places(); ++place) {
        const SongRow* const song = m_songs.At(place);
        bases.Put(place, song ? song->*text : std::nullopt);
    }
}

/// Reads the rows that this connection has changed. @return false when all have to be read again
bool SongShelf::RefreshRows()
{
    for (const qint64 id : m_watch.Songs()) {
        if (!RefreshSong(id))
            return false;
    }
    for (const qint64 row : m_watch.Links())
        RefreshLink(row);
    return !m_songs.IsWasteful() && !m_lyrics.IsWasteful();
}

bool SongShelf::RefreshSong(qint64 id)
{
    const SongTable::Place places = m_songs.Places();
    {
        Statement& statement = m_statements.Get(QByteArray(SmallColumns) + " WHERE rowid = ?");
        const StatementRun run(statement);
        statement.Bind({Value(id)});
        if (!statement.Step()) {
            m_songs.Remove(id);
            return true;
        }
        const std::optional<SongRow> song = ReadSong(statement, m_songs.Texts());
        if (!song || !m_songs.Put(*song))
            return false;
    }
    if (m_songs.Places() != places)
        m_links.ForgetPlaces();
    const SongTable::Place place = m_songs.PlaceOf(id);
    if (place < m_titles.Places())
        m_titles.Put(place, m_songs.At(place)->title);
    if (place < m_references.Places())
        m_references.Put(place, m_songs.At(place)->reference);
    if (place < m_names.Places())
        m_names.Put(place, m_songs.At(place)->title);
    if (m_lyricsState == Lyrics::All || place < m_lyricsTo)
        ReadLyric(place);
    return true;
}

void SongShelf::RefreshLink(qint64 row)
{
    Statement& statement = m_statements.Get(QByteArray(LinkColumns) + " WHERE rowid = ?");
    const StatementRun run(statement);
    statement.Bind({Value(row)});
    if (statement.Step())
        m_links.Put(row, LinkNumber(statement, 1), LinkNumber(statement, 2));
    else
        m_links.Remove(row);
}

/// Brings the themes that are known up to date. @return false where SQLite has to answer
bool SongShelf::RefreshThemes()
{
    SeeVersion();
    // What did not fit is not tried again before everything may have changed.
    if (!m_themesFit && !m_watch.AreThemesNew()) {
        m_watch.ForgetThemes();
        return false;
    }
    bool fits = m_themesFit && !m_watch.AreThemesNew();
    m_themesFit = false; // what is thrown on the way leaves nothing half known
    for (auto id = m_watch.Themes().begin(); fits && id != m_watch.Themes().end(); ++id)
        fits = RefreshTheme(*id);
    m_themesFit = fits || LoadThemes();
    if (m_themesFit && Size() > m_largestSize)
        m_themesFit = false;
    if (!m_themesFit)
        m_themes.Clear();
    m_watch.ForgetThemes();
    return m_themesFit;
}

/// @return false where a theme does not fit here
bool SongShelf::LoadThemes()
{
    m_themes.Clear();
    Statement& statement = m_statements.Get(QByteArray(ThemeColumns));
    const StatementRun run(statement);
    while (statement.Step()) {
        if (!PutTheme(m_themes, statement) || Size() > m_largestSize)
            return false;
    }
    return true;
}

bool SongShelf::RefreshTheme(qint64 id)
{
    Statement& statement = m_statements.Get(QByteArray(ThemeColumns) + " WHERE rowid = ?");
    const StatementRun run(statement);
    statement.Bind({Value(id)});
    if (statement.Step())
        return PutTheme(m_themes, statement);
    m_themes.Remove(id);
    return true;
}

bool SongShelf::Load()
{
    // What is thrown on the way leaves nothing half known.
    m_isFit = false;
    Clear();
    if (!LoadSongs(m_songs))
        return false;
    LoadLinks(m_links);
    return true;
}

bool SongShelf::LoadSongs(SongTable& songs)
{
    Statement& statement = m_statements.Get(QByteArray(SmallColumns) + EverySong);
    const StatementRun run(statement);
    while (statement.Step()) {
        const std::optional<SongRow> song = ReadSong(statement, songs.Texts());
        if (!song || songs.Size() > m_largestSize)
            return false;
        songs.Add(*song);
    }
    songs.Arrange();
    return true;
}

void SongShelf::LoadLinks(SongLinks& links)
{
    Statement& statement = m_statements.Get(QByteArray(LinkColumns) + " ORDER BY rowid");
    const StatementRun run(statement);
    while (statement.Step())
        links.Add(statement.Whole(0), LinkNumber(statement, 1), LinkNumber(statement, 2));
}

/// Reads lyrics on from where it stopped.
/// @param milliseconds  nothing for as long as it takes
/// @return true when all are there
bool SongShelf::ReadLyrics(std::optional<int> milliseconds)
{
    if (m_lyricsState != Lyrics::Partly)
        return m_lyricsState == Lyrics::All;
    QElapsedTimer timer;
    timer.start();
    Statement& statement = m_statements.Get("SELECT rowid, MUSICA FROM MUSICA WHERE rowid >= ?");
    const StatementRun run(statement);
    if (m_lyricsTo < m_songs.Places())
        statement.Bind({Value(m_songs.IdAt(m_lyricsTo))});
    while (m_lyricsTo < m_songs.Places()) {
        if (milliseconds && timer.elapsed() >= *milliseconds)
            return false;
        if (!statement.Step())
            break;
        const SongTable::Place place = m_songs.PlaceOf(statement.Whole(0));
        if (place == SongTable::Nowhere)
            continue;
        PutLyric(place, statement, 1);
        if (m_lyricsState == Lyrics::None)
            return false;
        m_lyricsTo = place + 1;
    }
    m_lyricsState = Lyrics::All;
    m_lyrics.Reserve(m_songs.Places());
    return true;
}

void SongShelf::ReadLyric(SongTable::Place place)
{
    Statement& statement = m_statements.Get("SELECT MUSICA FROM MUSICA WHERE rowid = ?");
    const StatementRun run(statement);
    statement.Bind({Value(m_songs.IdAt(place))});
    if (statement.Step())
        PutLyric(place, statement, 0);
}

void SongShelf::PutLyric(SongTable::Place place, const Statement& statement, int column)
{
    RowReader reader(statement);
    const SongRow::Text text = reader.Text(column);
    if (!reader.Fits() || !m_lyrics.Put(place, text) || Size() > m_largestSize)
        DropLyrics(Lyrics::None);
}

/// Gives back the memory of the lyrics.
void SongShelf::DropLyrics(Lyrics state)
{
    m_lyrics = SongLyrics();
    m_lyricsTo = 0;
    m_lyricsState = state;
}

void SongShelf::Clear()
{
    m_songs = SongTable();
    m_links = SongLinks();
    m_titles = SongBases();
    m_references = SongBases();
    m_names = SongNames();
    DropLyrics(Lyrics::Partly);
}

/// @return the texts of a song; nothing when it is gone
std::optional<SongTexts> SongShelf::TextsOf(qint64 id)
{
    static const QByteArray sql = QByteArrayLiteral("SELECT MUSICA, MUSICA2 FROM MUSICA WHERE "
                                                    "ID = ?");
    Statement& statement = m_statements.Get(sql);
    const StatementRun run(statement);
    statement.Bind({Value(id)});
    if (!statement.Step())
        return std::nullopt;
    const auto text = [&statement](int column) -> std::optional<QByteArray> {
        if (statement.ColumnKind(column) == Statement::Kind::Null)
            return std::nullopt;
        const std::string_view bytes = statement.Text(column);
        return QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()));
    };
    return SongTexts{text(0), text(1)};
}
