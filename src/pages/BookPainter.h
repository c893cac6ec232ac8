#pragma once

#include "pages/BookWriter.h"
#include "pages/PagePen.h"
#include "pages/PdfNavigation.h"

#include <QPdfWriter>

namespace Pages {

/// What stands at the head of a song, as it fits there.
struct SongTitle
{
    QStringList lines;
    QFont font;
    double lineHeight = 0;
    QString key;
    QFont keyFont;
};

/// Draws the pages of a book, one after the other.
class BookPainter
{
public:
    BookPainter(QPdfWriter& writer, const PaperSize& paper, const QString& bookTitle);

    /// @param pages  of each song the number of its first page, from 1
    void DrawContents(const Book& book, const QList<int>& pages);

    void DrawSong(const BookSong& song, const SongLayout& layout, const Room& room);

    /// @return how much higher the head of a song is, since its title takes more than one line
    double ExtraHead(const BookSong& song) const;

    /// @return how many pages the contents take
    static int ContentsPages(qsizetype songs, const PaperSize& paper);

    /// What the contents lead to.
    const QList<PdfLink>& Links() const { return m_links; }

private:
    void BeginPage();
    void DrawBookHead(const Book& book);
    void DrawEntry(const BookSong& song, int page, double top);
    SongTitle TitleOf(const BookSong& song) const;
    void DrawSongHead(const BookSong& song);
    void DrawRunningHead(const BookSong& song);
    void DrawUnit(const Placed& placed, double x, double y, double size, double column);
    void DrawWords(const QString& row, const QString& below, double x, double baseline,
                   const QFont& font, const QColor& colour, double column);
    static qsizetype EntriesOn(bool firstPage, const PaperSize& paper);

    double Left() const { return m_paper.left; }
    double Right() const { return m_paper.width - m_paper.right; }

    QPdfWriter& m_writer;
    QPainter m_painter;
    PagePen m_pen;
    const PaperSize& m_paper;
    QString m_bookTitle;
    int m_page = 0; ///< the current page's number, from 1
    QList<PdfLink> m_links;
};

} // namespace Pages
