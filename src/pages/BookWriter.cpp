#include "pages/BookWriter.h"

#include "pages/BookFonts.h"
#include "pages/BookPainter.h"

#include <QBuffer>
#include <QPageLayout>

namespace Pages {

namespace {

void SetUp(QPdfWriter& writer, const Book& book, const PaperSize& paper)
{
    writer.setResolution(PagePen::Resolution);
    writer.setTitle(book.title);
    writer.setCreator(u"Melodario"_qs);
    const QPageSize size(QSizeF(paper.width, paper.height), QPageSize::Point, QString(),
                         QPageSize::FuzzyMatch);
    writer.setPageLayout(QPageLayout(size, QPageLayout::Portrait, QMarginsF()));
}

QList<SongLayout> Layouts(const Book& book, const BookPainter& painter, const Room& room)
{
    QList<SongLayout> layouts;
    for (const BookSong& song : book.songs) {
        Room below = room;
        below.firstHeight -= painter.ExtraHead(song);
        layouts.append(LayOut(BlocksOf(song.text), below));
    }
    return layouts;
}

} // namespace

QByteArray WriteBook(const Book& book, Paper paper,
                     const std::function<void(qsizetype done)>& progress)
{
    const PaperSize& size = SizeOf(paper);
    const Room room = RoomOf(paper, SheetCharWidth());
    const bool hasContents = book.songs.size() > 1;
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QList<PdfBookmark> bookmarks;
    QList<PdfLink> links;
    {
        QPdfWriter writer(&buffer);
        SetUp(writer, book, size);
        BookPainter painter(writer, size, book.title);
        const QList<SongLayout> layouts = Layouts(book, painter, room);
        QList<int> pages;
        int next = 1 + (hasContents ? BookPainter::ContentsPages(book.songs.size(), size) : 0);
        for (qsizetype i = 0; i < book.songs.size(); ++i) {
            pages.append(next);
            bookmarks.append({book.songs[i].title, next});
            next += layouts[i].pages;
        }
        if (hasContents)
            painter.DrawContents(book, pages);
        for (qsizetype i = 0; i < book.songs.size(); ++i) {
            painter.DrawSong(book.songs[i], layouts[i], room);
            if (progress)
                progress(i + 1);
        }
        links = painter.Links();
    }
    return WithNavigation(buffer.data(), bookmarks, links, size.height);
}

} // namespace Pages
