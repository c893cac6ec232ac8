#include "store/shelf/SongShelf.h"

#include "runtime/RuntimeError.h"
#include "store/FetchedRows.h"
#include "store/shelf/IdRows.h"
#include "store/shelf/NameRows.h"
#include "store/shelf/SongView.h"
#include "store/shelf/TextChange.h"
#include "store/sqlite/LockPatience.h"
#include "store/sqlite/ReadSnapshot.h"
#include "store/text/Collation.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

using Field = SongSearch::Field;

constexpr int FirstPause = 15; // ms from a search to the first slice
constexpr int IdleSlice = 3;   // ms, not noticed between two key presses
constexpr int IdlePause = 4;   // ms from slice to slice

/// One condition of a search on one text of a song.
struct Condition
{
    Field field;
    Like like;
};

std::vector<Condition> Conditions(const SongSearch& search)
{
    std::vector<Condition> conditions;
    for (const SongSearch::Pattern& pattern : search.patterns) {
        const std::string_view like(pattern.like.constData(),
                                    static_cast<std::size_t>(pattern.like.size()));
        conditions.push_back({pattern.field, Like(like)});
    }
    return conditions;
}

} // namespace

SongShelf::SongShelf(sqlite3* database, StatementCache& statements, std::size_t largestSize)
    : m_database(database)
    , m_statements(statements)
    , m_largestSize(largestSize)
    , m_watch(database)
{
    QObject::connect(&m_idle, &QTimer::timeout, &m_idle, [this] {
        if (ReadAhead(IdleSlice))
            m_idle.start(IdlePause);
        else
            m_idle.stop();
    });
}

SongShelf::~SongShelf()
{
    for (const auto& view : Views())
        view->Detach();
}

std::size_t SongShelf::Size() const noexcept
{
    return m_songs.Size() + m_links.Size() + m_titles.Size() + m_references.Size() +
           m_names.Size() + m_themes.Size() + m_lyrics.Size();
}

std::shared_ptr<const Recordset::Rows> SongShelf::Answer(const SongSearch& search)
{
    const ReadSnapshot snapshot(m_database);
    const bool onLyrics =
        std::any_of(search.patterns.begin(), search.patterns.end(),
                    [](const auto& pattern) { return pattern.field == Field::Text; });
    try {
        if (!Refresh() || (onLyrics && !ReadLyrics(std::nullopt)))
            return nullptr;
    } catch (const RuntimeError&) {
        m_watch.Distrust();
        // Somebody holds the file: asking again would only wait as long once more.
        if ((sqlite3_errcode(m_database) & 0xff) == SQLITE_BUSY)
            throw;
        // SQLite finds anything else too where it matters, and tells in its own words.
        return nullptr;
    }
    for (const SongSearch::Pattern& pattern : search.patterns) {
        if (pattern.field != Field::Text)
            ReadBases(pattern.field);
    }
    if (!StayInBounds())
        return nullptr;
    // What was folded just now may have taken the room of the lyrics.
    if (onLyrics && m_lyricsState != Lyrics::All)
        return nullptr;
    // Marked songs are no search that another one would follow.
    if (!search.ids)
        ReadWhenIdle();
    return Show(search, Find(search));
}

/// @return false where SQLite has to answer. @throws RuntimeError when somebody holds the file
bool SongShelf::IsUpToDate()
{
    try {
        return Refresh();
    } catch (const RuntimeError&) {
        m_watch.Distrust();
        if ((sqlite3_errcode(m_database) & 0xff) == SQLITE_BUSY)
            throw;
        return false;
    }
}

std::shared_ptr<const Recordset::Rows> SongShelf::Answer(const SameSong& song)
{
    const ReadSnapshot snapshot(m_database);
    if (!IsUpToDate())
        return nullptr;
    for (SongTable::Place place = m_names.Places(); place < m_songs.Places(); ++place) {
        const SongRow* const row = m_songs.At(place);
        m_names.Put(place, row ? row->title : std::nullopt);
    }
    if (!StayInBounds())
        return nullptr;
    const std::string title = song.title.toStdString();
    const std::string reference = song.reference.toStdString();
    const auto equals = [](const SongRow::Text& text, const std::string& wanted) {
        return text && Collation::Shared().Compare(*text, wanted) == 0;
    };
    std::vector<qint64> ids;
    for (const SongTable::Place place : m_names.Candidates(title)) {
        const SongRow* const row = m_songs.At(place);
        if (row && equals(row->title, title) && equals(row->reference, reference))
            ids.push_back(row->id);
    }
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    auto rows = std::make_shared<FetchedRows>(QStringList{song.name});
    for (const qint64 id : ids)
        rows->AddNumber(id);
    return rows;
}

/// As IsUpToDate, of the themes alone.
bool SongShelf::AreThemesUpToDate()
{
    try {
        return RefreshThemes();
    } catch (const RuntimeError&) {
        m_watch.Distrust();
        if ((sqlite3_errcode(m_database) & 0xff) == SQLITE_BUSY)
            throw;
        return false;
    }
}

std::shared_ptr<const Recordset::Rows> SongShelf::Answer(const SameTheme& theme)
{
    const ReadSnapshot snapshot(m_database);
    if (!AreThemesUpToDate())
        return nullptr;
    return std::make_shared<IdRows>(theme.name, m_themes.Find(theme.description.toStdString()));
}

std::shared_ptr<const Recordset::Rows> SongShelf::Answer(const SongThemes& themes)
{
    const ReadSnapshot snapshot(m_database);
    if (!IsUpToDate() || !AreThemesUpToDate())
        return nullptr;
    const SongTable::Place place = m_songs.PlaceOf(themes.song);
    if (place == SongTable::Nowhere)
        return nullptr; // its links may be there all the same
    std::vector<NameRows::Name> names;
    for (const qint64 theme : m_links.ThemesAt(m_songs, place)) {
        // Where a theme is gone its link may still be there.
        if (const ThemeNames::Name* const name = m_themes.NameOf(theme))
            names.push_back(*name);
    }
    return std::make_shared<NameRows>(themes.name, std::move(names));
}

/// Takes away the marks of songs that are not among some.
void SongShelf::KeepIds(std::vector<char>& marks, const std::vector<qint64>& ids) const
{
    std::vector<char> wanted(marks.size(), 0);
    for (const qint64 id : ids) {
        const SongTable::Place place = m_songs.PlaceOf(id);
        if (place != SongTable::Nowhere)
            wanted[place] = marks[place];
    }
    marks = std::move(wanted);
}

/// @return for each place 1 where links, ID and category fit
std::vector<char> SongShelf::Candidates(const SongSearch& search)
{
    std::vector<char> marks = search.links ? m_links.Marks(m_songs, search.links->themes)
                                           : std::vector<char>(m_songs.Places(), 1);
    if (search.ids)
        KeepIds(marks, *search.ids);
    const auto fits = [&](SongTable::Place place) {
        if (!m_songs.At(place))
            return false;
        if (!search.categories)
            return true;
        const SongRow::Number& category = m_songs.CategoryAt(place);
        // There are two of them: looking them through is quickest.
        return category && std::find(search.categories->begin(), search.categories->end(),
                                     *category) != search.categories->end();
    };
    for (SongTable::Place place = 0; place < m_songs.Places(); ++place) {
        if (marks[place] != 0 && !fits(place))
            marks[place] = 0;
    }
    return marks;
}

/// Takes away the marks of songs whose title or reference does not match.
void SongShelf::KeepMatches(std::vector<char>& marks, const SongBases& bases, const Like& like,
                            SongRow::Text SongRow::*text) const
{
    // One letter is found in nearly every text: where it has to stand first it is not searched for.
    if (like.IsStart())
        bases.KeepStarts(marks, like.Needle().Needle());
    else
        bases.Keep(marks, like.Needle());
    if (like.IsDecidedByNeedle() || like.IsDecidedByStart())
        return;
    // The songs themselves are looked at only where the bases do not decide.
    const auto matches = [&](SongTable::Place place) {
        return like.IsDecidedByBases() ? like.MatchesBases(bases.At(place))
                                       : like.Matches(*(m_songs.At(place)->*text), bases.At(place));
    };
    for (SongTable::Place place = 0; place < m_songs.Places(); ++place) {
        if (marks[place] != 0 && !matches(place))
            marks[place] = 0;
    }
}

std::vector<const SongRow*> SongShelf::Find(const SongSearch& search)
{
    std::vector<char> marks = Candidates(search);
    // Lyrics last: they take longest.
    const std::vector<Condition> conditions = Conditions(search);
    for (const Condition& condition : conditions) {
        if (condition.field == Field::Title)
            KeepMatches(marks, m_titles, condition.like, &SongRow::title);
        else if (condition.field == Field::Reference)
            KeepMatches(marks, m_references, condition.like, &SongRow::reference);
    }
    for (const Condition& condition : conditions) {
        if (condition.field == Field::Text)
            m_lyrics.Keep(marks, condition.like);
    }
    std::vector<const SongRow*> rows;
    rows.reserve(static_cast<std::size_t>(std::count(marks.begin(), marks.end(), 1)));
    for (const SongTable::Place place : m_songs.InOrder(search.order)) {
        if (marks[place] != 0)
            rows.push_back(m_songs.At(place));
    }
    if (search.eachReferenceOnce)
        TitleOrder::KeepEachReferenceOnce(rows);
    return rows;
}

std::shared_ptr<const Recordset::Rows> SongShelf::Show(const SongSearch& search,
                                                       std::vector<const SongRow*> rows)
{
    auto view = std::make_shared<SongView>(search, m_songs.Pile(), std::move(rows),
                                           [this](qint64 id) { return TextsOf(id); });
    m_views.erase(std::remove_if(m_views.begin(), m_views.end(),
                                 [](const auto& known) { return known.expired(); }),
                  m_views.end());
    m_views.push_back(view);
    return view;
}

/// @return the results that may still ask for texts
std::vector<std::shared_ptr<SongView>> SongShelf::Views() const
{
    std::vector<std::shared_ptr<SongView>> views;
    for (const auto& known : m_views) {
        if (auto view = known.lock())
            views.push_back(std::move(view));
    }
    return views;
}

void SongShelf::BeforeChange(const Syntax::Statement& statement)
{
    m_watch.Announce(statement);
    const TextChange change(statement);
    if (!change.IsThere())
        return;
    try {
        for (const auto& view : Views())
            change.Song() ? view->KeepText(*change.Song()) : view->KeepAllTexts();
    } catch (const RuntimeError&) {
        // The statement itself meets the same failure, and tells it in its own words.
    }
}

void SongShelf::ReadWhenIdle()
{
    // Started anew by every search: what it found is painted before the next slice.
    if ((m_lyricsState == Lyrics::Partly || NextToPrepare()) && QCoreApplication::instance())
        m_idle.start(FirstPause);
}

/// @return the next piece of what a first search in a column, or a first suggestion, would wait
///         for; nothing when all is there, or when it could take the room of what is needed
std::optional<std::function<void()>> SongShelf::NextToPrepare()
{
    if (Size() > m_largestSize / 2)
        return std::nullopt;
    for (const Field field : {Field::Title, Field::Reference}) {
        if (Bases(field).Places() < m_songs.Places())
            return [this, field] { ReadBases(field); };
    }
    for (const auto order : {SongSearch::Order::Label, SongSearch::Order::Reference}) {
        if (!m_songs.IsSorted(order))
            return [this, order] { m_songs.InOrder(order); };
    }
    return std::nullopt;
}

bool SongShelf::ReadAhead(int milliseconds)
{
    const Impatience impatience(m_database);
    try {
        const ReadSnapshot snapshot(m_database);
        SeeVersion();
        // What another program changed is read by the next search, which may take its time.
        if (m_watch.IsEverythingNew() || !m_isFit || !Refresh())
            return false;
        if (const auto prepare = NextToPrepare()) {
            (*prepare)();
            return StayInBounds();
        }
        ReadLyrics(milliseconds);
    } catch (const RuntimeError&) {
        return false;
    } catch (const std::exception&) {
        // No memory: nothing may leave a clock's tick. A search meets it where somebody is told.
        m_watch.Distrust();
        return false;
    }
    return m_lyricsState == Lyrics::Partly;
}
