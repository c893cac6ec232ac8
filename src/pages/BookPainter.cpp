#include "pages/BookPainter.h"

#include "pages/BookFonts.h"
#include "songbook/SheetRows.h"

namespace Pages {

namespace {

constexpr double Rule = 0.9;
constexpr int MostTitleLines = 6;

} // namespace

BookPainter::BookPainter(QPdfWriter& writer, const PaperSize& paper, const QString& bookTitle)
    : m_writer(writer)
    , m_painter(&writer)
    , m_pen(m_painter)
    , m_paper(paper)
    , m_bookTitle(bookTitle)
{
}

void BookPainter::BeginPage()
{
    if (m_page > 0)
        m_writer.newPage();
    ++m_page;
    const QFont font = TitleFont(m_paper.small, false);
    const double baseline = m_paper.Foot() + (m_paper.bottom + m_paper.small) / 2;
    const QString number = QString::number(m_page);
    m_pen.TextBefore(Right(), baseline, number, font, Grey);
    const double room = Right() - Left() - 2 * m_pen.WidthOf(number, font);
    m_pen.Text(Left(), baseline, m_pen.Elided(m_bookTitle, font, room), font, Grey);
}

qsizetype BookPainter::EntriesOn(bool firstPage, const PaperSize& paper)
{
    const double head = firstPage ? paper.bookHead : paper.runningHead;
    return static_cast<qsizetype>((paper.Foot() - paper.top - head) / paper.entry);
}

int BookPainter::ContentsPages(qsizetype songs, const PaperSize& paper)
{
    const qsizetype more = songs - EntriesOn(true, paper);
    const qsizetype each = EntriesOn(false, paper);
    return more <= 0 ? 1 : 1 + static_cast<int>((more + each - 1) / each);
}

void BookPainter::DrawContents(const Book& book, const QList<int>& pages)
{
    qsizetype left = 0;
    double top = 0;
    for (qsizetype i = 0; i < book.songs.size(); ++i) {
        if (left == 0) {
            BeginPage();
            left = EntriesOn(i == 0, m_paper);
            top = m_paper.top + (i == 0 ? m_paper.bookHead : m_paper.runningHead);
            if (i == 0)
                DrawBookHead(book);
        }
        DrawEntry(book.songs[i], pages[i], top);
        top += m_paper.entry;
        --left;
    }
}

void BookPainter::DrawBookHead(const Book& book)
{
    const double room = Right() - Left();
    const QFont font =
        m_pen.Fitted(book.title, TitleFont(m_paper.bookTitle, true), room, m_paper.smallestTitle);
    double baseline = m_paper.top + m_paper.bookTitle;
    m_pen.Text(Left(), baseline, m_pen.Elided(book.title, font, room), font, Ink);
    baseline += m_paper.text * 1.6;
    const QFont small = TitleFont(m_paper.text, false);
    m_pen.Text(Left(), baseline, m_pen.Elided(book.subtitle, small, room), small, Grey);
    m_pen.Box(Left(), baseline + m_paper.text * 0.8, room, 2 * Rule, ChordBlue);
    m_pen.Text(Left(), m_paper.top + m_paper.bookHead - m_paper.text * 0.9, u"Índice"_qs,
               TitleFont(m_paper.text * 1.3, true), Ink);
}

void BookPainter::DrawEntry(const BookSong& song, int page, double top)
{
    const QFont font = TitleFont(m_paper.text, false);
    const QFont small = TitleFont(m_paper.small, false);
    const QFont bold = TitleFont(m_paper.text, true);
    const double baseline = top + m_paper.entry * 0.7;
    const QString number = QString::number(page);
    m_pen.TextBefore(Right(), baseline, number, bold, Ink);
    const double keyEnd = Right() - 2.6 * m_paper.text;
    m_pen.TextBefore(keyEnd, baseline, song.key, bold, ChordBlue);
    const double end = keyEnd - 3.2 * m_paper.text;

    const QString title = m_pen.Elided(song.title, font, end - Left());
    m_pen.Text(Left(), baseline, title, font, Ink);
    const double x = Left() + m_pen.WidthOf(title, font) + m_paper.text * 0.7;
    // A reference of which only the beginning would be seen says little.
    if (end - x > 6 * m_paper.small)
        m_pen.Text(x, baseline, m_pen.Elided(song.reference, small, end - x), small, Grey);
    const double bottom = top + m_paper.entry - 1;
    m_pen.Line(Left(), bottom, Right(), bottom, Rule / 3, Faint);
    m_links.append({m_page, QRectF(Left(), top, Right() - Left(), m_paper.entry), page});
}

SongTitle BookPainter::TitleOf(const BookSong& song) const
{
    SongTitle title;
    title.key = song.key.isEmpty() ? QString() : QString(u"Tom: "_qs + song.key);
    title.keyFont = TitleFont(m_paper.songTitle * 0.72, true);
    const double keyWidth =
        title.key.isEmpty() ? 0 : m_pen.WidthOf(title.key, title.keyFont) + m_paper.text;
    const double room = Right() - Left() - keyWidth;
    title.font =
        m_pen.Fitted(song.title, TitleFont(m_paper.songTitle, true), room, m_paper.smallestTitle);
    QString rest = song.title;
    for (int line = 1; line < MostTitleLines && m_pen.WidthOf(rest, title.font) > room; ++line) {
        qsizetype cut = rest.size();
        while (cut > 0 && m_pen.WidthOf(rest.first(cut), title.font) > room)
            cut = rest.lastIndexOf(u' ', cut - rest.size() - 1);
        if (cut <= 0)
            break;
        title.lines += rest.first(cut);
        rest = rest.sliced(cut).trimmed();
    }
    title.lines += m_pen.Elided(rest, title.font, room);
    title.lineHeight = title.font.pointSizeF() * 1.15;
    return title;
}

double BookPainter::ExtraHead(const BookSong& song) const
{
    const SongTitle title = TitleOf(song);
    return title.lineHeight * static_cast<double>(title.lines.size() - 1);
}

void BookPainter::DrawSongHead(const BookSong& song)
{
    const SongTitle title = TitleOf(song);
    double baseline = m_paper.top + m_paper.songTitle;
    m_pen.TextBefore(Right(), baseline, title.key, title.keyFont, ChordBlue);
    for (const QString& line : title.lines) {
        m_pen.Text(Left(), baseline, line, title.font, Ink);
        baseline += title.lineHeight;
    }
    baseline -= title.lineHeight;

    const double room = Right() - Left();
    const QFont small =
        m_pen.Fitted(song.reference, TitleFont(m_paper.text, false), room, m_paper.small);
    const double below = baseline + m_paper.text * 1.4;
    m_pen.Text(Left(), below, m_pen.Elided(song.reference, small, room), small, Grey);
    m_pen.Box(Left(), below + m_paper.text * 0.6, room, Rule, ChordBlue);
}

void BookPainter::DrawRunningHead(const BookSong& song)
{
    const QFont font = TitleFont(m_paper.text, true);
    const QFont small = TitleFont(m_paper.small, false);
    const QString again = u"continuação"_qs;
    const double baseline = m_paper.top + m_paper.text;
    const double room = Right() - Left() - m_pen.WidthOf(again, small) - m_paper.text;
    m_pen.Text(Left(), baseline, m_pen.Elided(song.title, font, room), font, Ink);
    m_pen.TextBefore(Right(), baseline, again, small, Grey);
    m_pen.Box(Left(), baseline + m_paper.text * 0.45, Right() - Left(), Rule / 2, ChordBlue);
}

void BookPainter::DrawSong(const BookSong& song, const SongLayout& layout, const Room& room)
{
    BeginPage();
    DrawSongHead(song);
    const double width = (room.width - room.gap * (layout.columns - 1)) / layout.columns;
    const double extra = ExtraHead(song);
    int page = 0;
    for (const Placed& placed : layout.placed) {
        for (; page < placed.page; ++page) {
            BeginPage();
            DrawRunningHead(song);
        }
        const double head = page == 0 ? m_paper.songHead + extra : m_paper.runningHead;
        DrawUnit(placed, Left() + placed.column * (width + room.gap),
                 m_paper.top + head + placed.top, layout.size, room.charWidth * layout.size);
    }
}

void BookPainter::DrawUnit(const Placed& placed, double x, double y, double size, double column)
{
    const Unit& unit = placed.unit;
    const QFont bold = SheetFont(size, true);
    if (!unit.heading.isEmpty()) {
        DrawWords(unit.heading, {}, x, y + HeadingBaseline * size, bold, Ink, column);
        return;
    }
    if (!unit.chords.isEmpty()) {
        DrawWords(unit.chords, unit.lyric, x, y + ChordsBaseline * size, bold, ChordBlue, column);
        y += ChordsHeight * size;
    }
    DrawWords(unit.lyric, unit.lyric, x, y + LyricBaseline * size, SheetFont(size, false), Ink,
              column);
}

/// Each word stands in its own column, also where letters of another type are wider.
/// @param below  the lyric whose syllables the words stand over
void BookPainter::DrawWords(const QString& row, const QString& below, double x, double baseline,
                            const QFont& font, const QColor& colour, double column)
{
    for (const Songbook::Word& word : Songbook::WordsOf(row)) {
        const auto at = static_cast<double>(SeenColumn(below, word.column));
        m_pen.Text(x + at * column, baseline, word.text.toString(), font, colour);
    }
}

} // namespace Pages
