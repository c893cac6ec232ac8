#include "tools/RowRescue.h"

#include "store/sqlite/Failure.h"
#include "tools/CheckedCatalogue.h"

#include <sqlite3.h>

#include <algorithm>
#include <deque>
#include <limits>
#include <memory>

namespace {

/// A row of a link table has no key that it is known by, so its place is kept with its rowid.
bool IsLinkTable(const QByteArray& table)
{
    return table == "TEMA_MUSICA" || table == "LISTA_MUSICA";
}

struct FinalizeRaw
{
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};
using RawStatement = std::unique_ptr<sqlite3_stmt, FinalizeRaw>;

/// @return nothing where the database does not take the statement
RawStatement Prepared(sqlite3* database, const QByteArray& sql)
{
    sqlite3_stmt* raw = nullptr;
    sqlite3_prepare_v2(database, sql.constData(), static_cast<int>(sql.size()), &raw, nullptr);
    return RawStatement(raw);
}

using Range = std::pair<qint64, qint64>;

constexpr qint64 First = std::numeric_limits<qint64>::min();
constexpr qint64 Last = std::numeric_limits<qint64>::max();

constexpr int PrimaryCode = 0xff;

/// How many ranges of identifiers are tried before what is left counts as lost.
constexpr int Attempts = 200'000;

/// How far beyond the last row that could be read others are looked for.
constexpr qint64 Beyond = 20'000;

} // namespace

/// Reads rows from both ends of a range. Where neither way leads on, a damaged place lies between,
/// and the two halves of what is left are tried; so one bad page costs its own rows alone.
class RowRescue::Reader
{
public:
    Reader(RowRescue& rescue, const QList<QByteArray>& columns);

    bool IsReady() const { return m_forward && m_backward && m_exists && m_insert; }
    void ReadAll();

private:
    bool Walk(sqlite3_stmt* way, Range& left, bool forward);
    void Try(Range range);
    void Store(sqlite3_stmt* row);
    void ReadInPart(qint64 id);
    qint64 Guess(qint64 from) const;

    RowRescue& m_rescue;
    QList<QByteArray> m_columns;
    RawStatement m_forward;
    RawStatement m_backward;
    RawStatement m_exists;
    RawStatement m_insert;
    std::deque<Range> m_ranges;
};

RowRescue::Reader::Reader(RowRescue& rescue, const QList<QByteArray>& columns)
    : m_rescue(rescue)
    , m_columns(columns)
{
    sqlite3* from = rescue.m_from.Handle();
    const QByteArray& table = rescue.m_table;
    const QByteArray names = columns.join(", ");
    // An index may hold a column too, but not what the table says of it.
    const QByteArray rows = " FROM " + table + " NOT INDEXED WHERE rowid BETWEEN ? AND ?";
    m_forward = Prepared(from, "SELECT rowid, " + names + rows + " ORDER BY rowid");
    m_backward = Prepared(from, "SELECT rowid, " + names + rows + " ORDER BY rowid DESC");
    m_exists = Prepared(from, "SELECT rowid FROM " + table + " NOT INDEXED WHERE rowid = ?");
    QByteArray into = names;
    QByteArray places = QByteArray("?, ").repeated(static_cast<int>(columns.size())).chopped(2);
    if (IsLinkTable(table)) {
        into += ", rowid";
        places += ", ?";
    }
    m_insert = Prepared(rescue.m_into, "INSERT OR IGNORE INTO " + table + " (" + into +
                                           ") VALUES (" + places + ")");
}

void RowRescue::Reader::Store(sqlite3_stmt* row)
{
    const int count = static_cast<int>(m_columns.size());
    for (int i = 0; i < count; ++i)
        sqlite3_bind_value(m_insert.get(), i + 1, sqlite3_column_value(row, i + 1));
    if (IsLinkTable(m_rescue.m_table))
        sqlite3_bind_int64(m_insert.get(), count + 1, sqlite3_column_int64(row, 0));
    const int result = sqlite3_step(m_insert.get());
    sqlite3_reset(m_insert.get());
    // In a table that another tool made, an identifier may be a text or be there twice.
    const bool unfit = (result & PrimaryCode) == SQLITE_MISMATCH ||
                       (result == SQLITE_DONE && sqlite3_changes(m_rescue.m_into) == 0);
    if (!unfit && result != SQLITE_DONE)
        Failure::ThrowLast(m_rescue.m_into);
    if (unfit)
        m_rescue.m_gaps.append({sqlite3_column_int64(row, 0), sqlite3_column_int64(row, 0)});
    else
        ++m_rescue.m_copied;
}

/// @param left  is made smaller by what was read
/// @return whether everything in the range was read
bool RowRescue::Reader::Walk(sqlite3_stmt* way, Range& left, bool forward)
{
    sqlite3_bind_int64(way, 1, left.first);
    sqlite3_bind_int64(way, 2, left.second);
    int result = SQLITE_ROW;
    while ((result = sqlite3_step(way)) == SQLITE_ROW) {
        const qint64 id = sqlite3_column_int64(way, 0);
        // In a damaged table the way may lead in circles.
        if (id < left.first || id > left.second)
            break;
        Store(way);
        if (id == (forward ? left.second : left.first)) {
            left = {1, 0};
            break;
        }
        (forward ? left.first : left.second) = forward ? id + 1 : id - 1;
    }
    sqlite3_reset(way);
    return result == SQLITE_DONE || left.first > left.second;
}

void RowRescue::Reader::Try(Range range)
{
    if (Walk(m_forward.get(), range, true) || Walk(m_backward.get(), range, false))
        return;
    if (range.first == First || range.second == Last) {
        // Nothing at an open end could be read; identifiers are counted up from 1.
        range.first = std::max(range.first, qint64{1});
        range.second = std::min(range.second, Guess(range.first));
    }
    if (range.first > range.second)
        return;
    if (range.first == range.second) {
        ReadInPart(range.first);
        return;
    }
    const qint64 middle = range.first + (range.second - range.first) / 2;
    m_ranges.emplace_back(range.first, middle);
    m_ranges.emplace_back(middle + 1, range.second);
}

/// @return the last identifier that may have been given out
qint64 RowRescue::Reader::Guess(qint64 from) const
{
    const RawStatement row =
        Prepared(m_rescue.m_from.Handle(),
                 "SELECT seq FROM sqlite_sequence WHERE name = '" + m_rescue.m_table + "'");
    if (row && sqlite3_step(row.get()) == SQLITE_ROW)
        return std::min(sqlite3_column_int64(row.get(), 0), from + Beyond);
    return from + Beyond;
}

/// A long text may lie on a bad page while the rest of its row is well.
void RowRescue::Reader::ReadInPart(qint64 id)
{
    sqlite3_bind_int64(m_exists.get(), 1, id);
    const int found = sqlite3_step(m_exists.get());
    sqlite3_reset(m_exists.get());
    if (found == SQLITE_DONE)
        return;
    int read = 0;
    for (int i = 0; found == SQLITE_ROW && i < m_columns.size(); ++i) {
        const RawStatement one = Prepared(m_rescue.m_from.Handle(),
                                          "SELECT " + m_columns[i] + " FROM " + m_rescue.m_table +
                                              " NOT INDEXED WHERE rowid = ?");
        sqlite3_bind_null(m_insert.get(), i + 1);
        if (!one)
            continue;
        sqlite3_bind_int64(one.get(), 1, id);
        if (sqlite3_step(one.get()) != SQLITE_ROW)
            continue;
        sqlite3_bind_value(m_insert.get(), i + 1, sqlite3_column_value(one.get(), 0));
        // The identifier alone is nothing.
        read += m_columns[i] == "ID" ? 0 : 1;
    }
    if (read == 0 || IsLinkTable(m_rescue.m_table)) {
        m_rescue.m_gaps.append({id, id});
        return;
    }
    if (sqlite3_step(m_insert.get()) == SQLITE_DONE)
        m_rescue.m_inPart.append(id);
    sqlite3_reset(m_insert.get());
}

void RowRescue::Reader::ReadAll()
{
    m_ranges.emplace_back(First, Last);
    // The widest ranges come first, so that little is given up where there is much to try.
    for (int attempt = 0; attempt < Attempts && !m_ranges.empty(); ++attempt) {
        const Range range = m_ranges.front();
        m_ranges.pop_front();
        Try(range);
    }
    for (const Range& range : m_ranges)
        m_rescue.m_gaps.append(range);
}

RowRescue::RowRescue(const CheckedCatalogue& from, sqlite3* into, QByteArray table)
    : m_table(std::move(table))
    , m_from(from)
    , m_into(into)
{
}

void RowRescue::Run()
{
    const QList<QByteArray> columns = m_from.ColumnsOf(m_table);
    if (columns.isEmpty())
        return;
    Reader reader(*this, columns);
    if (!reader.IsReady()) {
        m_unreadable = true;
        return;
    }
    reader.ReadAll();
    std::sort(m_inPart.begin(), m_inPart.end());
}

QList<std::pair<qint64, qint64>> RowRescue::Gaps() const
{
    QList<Range> sorted = m_gaps;
    std::sort(sorted.begin(), sorted.end());
    QList<Range> joined;
    for (const Range& gap : sorted) {
        if (!joined.isEmpty() && joined.last().second + 1 == gap.first)
            joined.last().second = gap.second;
        else
            joined.append(gap);
    }
    return joined;
}
