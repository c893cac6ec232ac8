#include "pages/BookWriter.h"
#include "tools/ChosenSongs.h"
#include "tools/ConversionOrder.h"
#include "tools/ConversionReport.h"
#include "tools/DestinationKind.h"

namespace {

QString Subtitle(const ChosenSongs& songs)
{
    const qsizetype count = songs.songs.size();
    const QString counted =
        count == 1 ? u"1 música"_qs : QString(QString::number(count) + u" músicas");
    return songs.date.isEmpty() ? counted : QString(songs.date + u" · " + counted);
}

} // namespace

QList<OutputFile> MakePdfBook(const ChosenSongs& songs, const ConversionOrder& order,
                              ConversionReport& report)
{
    Pages::Book book;
    book.title = songs.name.isEmpty() ? u"Cancioneiro"_qs : songs.name;
    book.subtitle = Subtitle(songs);
    for (const ChosenSong& chosen : songs.songs) {
        const ExchangeSong& song = chosen.song;
        const QString key = song.tom.value_or(QString()) + song.variacao.value_or(QString());
        book.songs.append({song.titulo.value_or(QString()).simplified(),
                           song.referencia.value_or(QString()).simplified(), key.simplified(),
                           TextOf(song, order.version)});
    }
    const auto progress = [&](qsizetype done) {
        report.Progress(done, book.songs.size(), u"músicas"_qs);
    };
    const Pages::Paper paper = order.phone ? Pages::Paper::Phone : Pages::Paper::A4;
    return {{order.destination, Pages::WriteBook(book, paper, progress)}};
}
