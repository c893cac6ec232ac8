#include "pages/SongBlocks.h"

#include "runtime/Text.h"
#include "songbook/SheetRows.h"

#include <algorithm>

namespace Pages {

namespace {

/// Columns in front of what follows a cut.
constexpr qsizetype Indent = 2;

bool TakesNoColumn(QChar sign)
{
    return sign.isLowSurrogate() || sign.category() == QChar::Mark_NonSpacing ||
           sign.category() == QChar::Mark_Enclosing;
}

bool IsBlank(QStringView row)
{
    return row.trimmed().isEmpty();
}

QString WithoutBlanksBehind(QStringView row)
{
    while (!row.isEmpty() && row.back().isSpace())
        row.chop(1);
    return row.toString();
}

/// A row that no musician wrote is taken for several: cutting it would take the square of its
/// length.
constexpr qsizetype LongestRow = 4000;

/// As the viewer cuts a song into lines.
QStringList RowsOf(const QString& text)
{
    QString even = text;
    even.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\u00A3', u'\n').replace(u'\r', u' ');
    QStringList rows;
    for (const QString& line : even.split(u'\n')) {
        QString row = Songbook::WithoutTabs(WithoutBlanksBehind(line));
        for (; row.size() > LongestRow; row = row.sliced(LongestRow))
            rows += row.first(LongestRow);
        rows += row;
    }
    return rows;
}

class BlockMaker
{
public:
    void Add(const QString& row)
    {
        if (IsBlank(row)) {
            AddPending();
            CloseBlock();
        } else if (Songbook::IsChordRow(row)) {
            AddPending();
            m_pending = row;
        } else if (Songbook::IsHeadingRow(row)) {
            AddPending();
            CloseBlock();
            m_block.append({Text::UCase(QStringView(row).trimmed()), {}, {}});
        } else {
            m_block.append({{}, m_pending, row});
            m_pending.clear();
        }
    }

    QList<Block> Finish()
    {
        AddPending();
        // A last heading has nothing to wait for.
        if (!m_block.isEmpty())
            m_blocks.append(m_block);
        return m_blocks;
    }

private:
    /// Chords without lyrics below them.
    void AddPending()
    {
        if (!m_pending.isEmpty())
            m_block.append({{}, m_pending, {}});
        m_pending.clear();
    }

    /// A heading alone waits for what follows.
    void CloseBlock()
    {
        const bool waits = !m_block.isEmpty() && !m_block.last().heading.isEmpty();
        if (m_block.isEmpty() || waits)
            return;
        m_blocks.append(m_block);
        m_block.clear();
    }

    QList<Block> m_blocks;
    Block m_block;
    QString m_pending;
};

bool IsBoundary(QStringView row, qsizetype at)
{
    return at >= row.size() || row[at] == u' ' || row[at - 1] == u' ';
}

/// @return true when both rows may be cut there; of the lyric only where words are to stay whole
bool CanCutAt(const Unit& unit, qsizetype at, bool betweenWords)
{
    const QStringView text = unit.heading.isEmpty() ? QStringView(unit.lyric) : unit.heading;
    const bool inSign = at < text.size() && TakesNoColumn(text[at]);
    return !inSign && IsBoundary(unit.chords, at) && (!betweenWords || IsBoundary(text, at));
}

/// @return where to cut so that the parts become about as long: best between words of both rows,
///         else between chords, else anywhere
qsizetype CutAt(const Unit& unit, qsizetype columns)
{
    const qsizetype all = unit.Columns();
    const qsizetype parts = (all + columns - 1) / columns;
    // The parts that follow are indented.
    const qsizetype rest = (parts - 1) * (columns - Indent);
    const qsizetype wanted = qMin(columns, qMax((all + parts - 1) / parts, all - rest));
    for (const bool betweenWords : {true, false}) {
        for (qsizetype at = wanted; at <= columns; ++at) {
            if (CanCutAt(unit, at, betweenWords))
                return at;
        }
        for (qsizetype at = wanted - 1; at > columns / 3; --at) {
            if (CanCutAt(unit, at, betweenWords))
                return at;
        }
    }
    return columns;
}

qsizetype BlanksInFront(QStringView row)
{
    const auto isText = [](QChar sign) { return sign != u' '; };
    return std::find_if(row.cbegin(), row.cend(), isText) - row.cbegin();
}

/// @return what follows a cut, moved to the left as far as both rows allow
Unit Rest(const Unit& unit, qsizetype cut)
{
    const QString indent(Indent, u' ');
    Unit rest{unit.heading.mid(cut).trimmed(), unit.chords.mid(cut), unit.lyric.mid(cut)};
    if (IsBlank(rest.chords))
        rest.chords.clear();
    if (IsBlank(rest.lyric))
        rest.lyric.clear();
    qsizetype shift = rest.chords.isEmpty() ? rest.lyric.size() : BlanksInFront(rest.chords);
    if (!rest.lyric.isEmpty())
        shift = qMin(shift, BlanksInFront(rest.lyric));
    for (QString* row : {&rest.chords, &rest.lyric}) {
        if (!row->isEmpty())
            *row = indent + QStringView(*row).sliced(shift);
    }
    return rest;
}

} // namespace

qsizetype SeenColumn(QStringView row, qsizetype index)
{
    const QStringView before = row.first(qMin(index, row.size()));
    const qsizetype unseen = std::count_if(before.cbegin(), before.cend(), TakesNoColumn);
    return index - unseen;
}

qsizetype Unit::Columns() const
{
    return qMax(heading.size(), qMax(chords.size(), SeenColumn(lyric, lyric.size())));
}

QList<Block> BlocksOf(const QString& text)
{
    BlockMaker maker;
    for (const QString& row : RowsOf(text))
        maker.Add(row);
    return maker.Finish();
}

QList<Unit> Wrapped(const Unit& unit, qsizetype columns)
{
    QList<Unit> parts;
    Unit rest = unit;
    while (rest.Columns() > columns) {
        const qsizetype cut = CutAt(rest, columns);
        const Unit part{WithoutBlanksBehind(QStringView(rest.heading).left(cut)),
                        WithoutBlanksBehind(QStringView(rest.chords).left(cut)),
                        WithoutBlanksBehind(QStringView(rest.lyric).left(cut))};
        if (part.Columns() > 0)
            parts.append(part);
        rest = Rest(rest, cut);
    }
    if (rest.Columns() > 0)
        parts.append(rest);
    return parts;
}

} // namespace Pages
