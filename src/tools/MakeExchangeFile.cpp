#include "mld/ExchangeWriter.h"
#include "songbook/Exchangeable.h"
#include "store/CodePage.h"
#include "tools/ChosenSongs.h"
#include "tools/ConversionOrder.h"
#include "tools/ConversionReport.h"
#include "tools/DestinationKind.h"

QList<OutputFile> MakeExchangeFile(const ChosenSongs& songs, const ConversionOrder& order,
                                   ConversionReport& report)
{
    QString document = ExchangeWriter::Head();
    for (qsizetype i = 0; i < songs.songs.size(); ++i) {
        // The songs of a small file are told of together, so that nothing is told twice.
        Songbook::Remarks narrowed;
        const ChosenSong& first = songs.songs[i];
        const auto belongs = [&](qsizetype next) {
            return !first.amongMany && next < songs.songs.size() &&
                   songs.songs[next].source == first.source;
        };
        ExchangeWriter::Append(document, Songbook::MadeExchangeable(first.song, narrowed));
        for (; belongs(i + 1); ++i)
            ExchangeWriter::Append(document,
                                   Songbook::MadeExchangeable(songs.songs[i + 1].song, narrowed));
        report.Tell(first.source, first.TitleAmongMany(), narrowed.All());
        report.Progress(i + 1, songs.songs.size(), u"músicas"_qs);
    }
    document += ExchangeWriter::Tail();
    return {{order.destination, CodePage::FromUnicode(document)}};
}
