#include "songbook/FileNames.h"
#include "songbook/PlainTextWriter.h"
#include "tools/ChosenSongs.h"
#include "tools/ConversionOrder.h"
#include "tools/ConversionReport.h"
#include "tools/DestinationKind.h"

namespace {

QByteArray TextDocument(const ExchangeSong& song, int version)
{
    ExchangeSong shown = song;
    shown.letra1 = TextOf(song, version);
    return Songbook::WritePlainText(shown, 1).toUtf8();
}

} // namespace

QList<OutputFile> MakeTextFile(const ChosenSongs& songs, const ConversionOrder& order,
                               ConversionReport& report)
{
    QByteArray document;
    qsizetype done = 0;
    for (const ChosenSong& chosen : songs.songs) {
        if (!document.isEmpty())
            document += "\r\n" + Songbook::SongsApart().toUtf8() + "\r\n\r\n";
        document += TextDocument(chosen.song, order.version);
        report.Progress(++done, songs.songs.size(), u"músicas"_qs);
    }
    return {{order.destination, document}};
}

QList<OutputFile> MakeTextFolder(const ChosenSongs& songs, const ConversionOrder& order,
                                 ConversionReport& report)
{
    Songbook::FileNames names;
    QList<OutputFile> files;
    for (const ChosenSong& chosen : songs.songs) {
        const QString name = names.For(chosen.song.titulo.value_or(QString()), u".txt"_qs);
        files.append({order.destination + name, TextDocument(chosen.song, order.version)});
        report.Progress(files.size(), songs.songs.size(), u"músicas"_qs);
    }
    return files;
}
