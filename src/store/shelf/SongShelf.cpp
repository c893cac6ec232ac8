#include "store/shelf/SongShelf.h"

#include "runtime/RuntimeError.h"
#include "store/shelf/SongView.h"
#include "store/shelf/TextStart.h"
#include "store/sqlite/LockPatience.h"
#include "store/sqlite/ReadSnapshot.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

using Field = SongSearch::Field;

constexpr int IdleSlice = 3;  // ms, not noticed between two key presses
constexpr int IdlePause = 15; // ms

/// One condition of a search on one text of a song.
struct Condition
{
    explicit Condition(const SongSearch::Pattern& pattern)
        : field(pattern.field)
        , like({pattern.like.constData(), static_cast<std::size_t>(pattern.like.size())})
    {
    }

    bool Holds(const SongRow& song) const
    {
        const SongRow::Text& text = field == Field::Title ? song.title : song.reference;
        const std::string_view bases =
            field == Field::Title ? song.titleBases : song.referenceBases;
        return text && like.Matches(*text, bases);
    }

    Field field;
    Like like;
};

std::vector<Condition> Conditions(const SongSearch& search, bool onLyrics)
{
    std::vector<Condition> conditions;
    for (const SongSearch::Pattern& pattern : search.patterns) {
        if ((pattern.field == Field::Text) == onLyrics)
            conditions.emplace_back(pattern);
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
    m_idle.setInterval(IdlePause);
    QObject::connect(&m_idle, &QTimer::timeout, &m_idle, [this] {
        if (!ReadAhead(IdleSlice))
            m_idle.stop();
    });
}

SongShelf::~SongShelf()
{
    SettleViews();
}

std::size_t SongShelf::Size() const noexcept
{
    return m_songs.Size() + m_links.Size() + m_lyrics.Size();
}

std::shared_ptr<const Recordset::Rows> SongShelf::Answer(const SongSearch& search)
{
    const ReadSnapshot snapshot(m_database);
    try {
        const bool onLyrics = !Conditions(search, true).empty();
        if (!Refresh() || (onLyrics && !ReadLyrics(std::nullopt)))
            return nullptr;
    } catch (const RuntimeError&) {
        // SQLite finds it too where it matters, and tells in its own words.
        m_watch.Distrust();
        return nullptr;
    }
    ReadWhenIdle();
    return Show(search, Find(search));
}

/// @return for each place 1 where links, category, title and reference fit
std::vector<char> SongShelf::Candidates(const SongSearch& search)
{
    std::vector<char> marks(m_songs.Places(), search.links ? 0 : 1);
    if (search.links)
        m_links.Mark(marks, m_songs, search.links->themes);
    const std::vector<Condition> conditions = Conditions(search, false);
    for (const Condition& condition : conditions)
        TextStart::Unmark(marks,
                          condition.field == Field::Title ? m_songs.TitleStarts()
                                                          : m_songs.ReferenceStarts(),
                          condition.like.Start());
    const auto fits = [&](const SongRow& song) {
        if (search.categories &&
            (!song.category || !std::binary_search(search.categories->begin(),
                                                   search.categories->end(), *song.category)))
            return false;
        return std::all_of(conditions.begin(), conditions.end(),
                           [&song](const Condition& c) { return c.Holds(song); });
    };
    for (SongTable::Place place = 0; place < m_songs.Places(); ++place) {
        const SongRow* song = m_songs.At(place);
        if (marks[place] != 0 && !(song && fits(*song)))
            marks[place] = 0;
    }
    return marks;
}

std::vector<const SongRow*> SongShelf::Find(const SongSearch& search)
{
    std::vector<char> marks = Candidates(search);
    for (const Condition& condition : Conditions(search, true)) {
        const LetterTriples triples(condition.like.Needle());
        const LetterTriples* const asked = triples.IsEmpty() ? nullptr : &triples;
        for (SongTable::Place place = 0; place < m_songs.Places(); ++place) {
            if (marks[place] != 0 && !m_lyrics.Matches(place, condition.like, asked))
                marks[place] = 0;
        }
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
                                           [this](qint64 id) { return TextOf(id); });
    m_views.erase(std::remove_if(m_views.begin(), m_views.end(),
                                 [](const auto& known) { return known.expired(); }),
                  m_views.end());
    m_views.push_back(view);
    return view;
}

void SongShelf::SettleViews()
{
    for (const auto& known : m_views) {
        if (const auto view = known.lock())
            view->Settle();
    }
    m_views.clear();
}

void SongShelf::BeforeChange(const Syntax::Statement& statement)
{
    m_watch.Announce(statement);
    const auto isText = [](const Syntax::Assignment& assignment) {
        return assignment.target.column->name.compare(u"MUSICA", Qt::CaseInsensitive) == 0;
    };
    const auto* update = std::get_if<Syntax::Update>(&statement);
    const bool writesText =
        update && std::any_of(update->assignments.begin(), update->assignments.end(), isText);
    if (writesText || std::holds_alternative<Syntax::Delete>(statement))
        SettleViews();
}

void SongShelf::ReadWhenIdle()
{
    if (m_lyricsState == Lyrics::Partly && !m_idle.isActive() && QCoreApplication::instance())
        m_idle.start();
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
        ReadLyrics(milliseconds);
    } catch (const RuntimeError&) {
        return false;
    }
    return m_lyricsState == Lyrics::Partly;
}
