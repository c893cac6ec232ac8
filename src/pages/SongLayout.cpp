#include "pages/SongLayout.h"

#include <cmath>

namespace Pages {

namespace {

constexpr double Step = 0.5;
constexpr qsizetype FewestColumns = 16;

/// What a layout is worth beside the pages that it takes, in points of size.
constexpr double SecondColumnCosts = 0.6;
constexpr double WrappingCosts = 1.2;
constexpr double EachWrapCosts = 0.25;
constexpr double MostForWraps = 3.0;

/// Fills one column after the other.
class Filling
{
public:
    Filling(const Room& room, double size, int columns)
        : m_room(room)
    {
        m_layout.size = size;
        m_layout.columns = columns;
        const double width = (room.width - room.gap * (columns - 1)) / columns;
        m_columns = qMax(FewestColumns,
                         static_cast<qsizetype>(std::floor(width / (room.charWidth * size))));
    }

    SongLayout Fill(const QList<Block>& blocks)
    {
        for (const Block& block : blocks)
            AddBlock(block);
        m_layout.pages = m_page + 1;
        return m_layout;
    }

    /// @return the height of the highest block, in points
    double Highest() const { return m_highest; }

private:
    double Height() const { return m_page == 0 ? m_room.firstHeight : m_room.nextHeight; }
    double Gap() const { return m_top > 0 ? BlockGap * m_layout.size : 0; }
    double HeightOfUnit(const Unit& unit) const { return HeightOf(unit) * m_layout.size; }

    bool Fits(double height) const
    {
        constexpr double Hair = 1e-6;
        return m_top + height <= Height() + Hair;
    }

    void NextColumn()
    {
        m_top = 0;
        if (++m_column == m_layout.columns) {
            m_column = 0;
            ++m_page;
        }
    }

    void AddBlock(const Block& block)
    {
        Block units;
        double height = 0;
        for (const Unit& unit : block) {
            const QList<Unit> parts = Wrapped(unit, m_columns);
            m_layout.wrapped += parts.size() > 1 ? 1 : 0;
            for (const Unit& part : parts) {
                units.append(part);
                height += HeightOfUnit(part);
            }
        }
        m_highest = qMax(m_highest, height);
        // A block that no column can hold begins where there is room for its first rows.
        const bool canBeWhole = height <= m_room.nextHeight || height <= m_room.firstHeight;
        if (m_top > 0 && canBeWhole && !Fits(Gap() + height))
            NextColumn();
        m_top += Gap();
        for (qsizetype i = 0; i < units.size(); ++i)
            AddUnit(units, i);
    }

    void AddUnit(const Block& units, qsizetype i)
    {
        double needed = HeightOfUnit(units[i]);
        // A heading never stands alone at the foot of a column.
        if (!units[i].heading.isEmpty() && i + 1 < units.size())
            needed += HeightOfUnit(units[i + 1]);
        if (m_top > 0 && !Fits(needed))
            NextColumn();
        m_layout.placed.append({units[i], m_page, m_column, m_top});
        m_top += HeightOfUnit(units[i]);
    }

    const Room& m_room;
    SongLayout m_layout;
    qsizetype m_columns = 0;
    int m_page = 0;
    int m_column = 0;
    double m_top = 0;
    double m_highest = 0;
};

double Worth(const SongLayout& layout)
{
    double worth = layout.size - (layout.columns > 1 ? SecondColumnCosts : 0);
    if (layout.wrapped > 0)
        worth -= WrappingCosts + qMin(MostForWraps, EachWrapCosts * layout.wrapped);
    return worth;
}

bool IsBetter(const SongLayout& layout, const SongLayout& than)
{
    return layout.pages != than.pages ? layout.pages < than.pages : Worth(layout) > Worth(than);
}

SongLayout Best(const QList<Block>& blocks, const Room& room, double smallest)
{
    SongLayout best;
    const auto steps = static_cast<int>(std::lround((room.largest - smallest) / Step));
    for (int step = 0; step <= steps; ++step) {
        const double size = room.largest - step * Step;
        for (int columns = 1; columns <= room.mostColumns; ++columns) {
            SongLayout layout = Filling(room, size, columns).Fill(blocks);
            if (best.size == 0 || IsBetter(layout, best))
                best = std::move(layout);
        }
        // Nothing smaller can be better than a whole page with whole lines.
        if (best.pages == 1 && best.wrapped == 0 && best.columns == 1)
            break;
    }
    return best;
}

/// @return the same layout of one page with columns as even as its blocks allow
SongLayout Balanced(const QList<Block>& blocks, const Room& room, SongLayout layout)
{
    Filling highest(room, layout.size, layout.columns);
    highest.Fill(blocks);
    Room shorter = room;
    double tooShort = highest.Highest(); // less would break a block
    double enough = room.firstHeight;
    while (enough - tooShort > Step) {
        shorter.firstHeight = (enough + tooShort) / 2;
        SongLayout even = Filling(shorter, layout.size, layout.columns).Fill(blocks);
        if (even.pages == 1) {
            enough = shorter.firstHeight;
            layout = std::move(even);
        } else {
            tooShort = shorter.firstHeight;
        }
    }
    return layout;
}

} // namespace

double HeightOf(const Unit& unit)
{
    if (!unit.heading.isEmpty())
        return HeadingHeight;
    return (unit.chords.isEmpty() ? 0 : ChordsHeight) +
           (unit.lyric.isEmpty() ? LyricHeight - ChordsHeight : LyricHeight);
}

SongLayout LayOut(const QList<Block>& blocks, const Room& room)
{
    SongLayout best = Best(blocks, room, room.smallest);
    if (best.pages > 1)
        return Best(blocks, room, room.smallestOfMany);
    return best.columns > 1 ? Balanced(blocks, room, std::move(best)) : best;
}

} // namespace Pages
