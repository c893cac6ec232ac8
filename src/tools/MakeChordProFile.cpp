#include "songbook/ChordProWriter.h"
#include "songbook/FileNames.h"
#include "tools/ChosenSongs.h"
#include "tools/ConversionOrder.h"
#include "tools/ConversionReport.h"
#include "tools/DestinationKind.h"

QList<OutputFile> MakeChordProFile(const ChosenSongs& songs, const ConversionOrder& order,
                                   ConversionReport& report)
{
    QByteArray document;
    qsizetype done = 0;
    for (const ChosenSong& chosen : songs.songs) {
        if (!document.isEmpty())
            document += "\n{new_song}\n";
        document += Songbook::WriteChordPro(chosen.song).toUtf8();
        report.Progress(++done, songs.songs.size(), u"músicas"_qs);
    }
    return {{order.destination, document}};
}

QList<OutputFile> MakeChordProFolder(const ChosenSongs& songs, const ConversionOrder& order,
                                     ConversionReport& report)
{
    Songbook::FileNames names;
    QList<OutputFile> files;
    for (const ChosenSong& chosen : songs.songs) {
        const QString name = names.For(chosen.song.titulo.value_or(QString()), u".cho"_qs);
        files.append({order.destination + name, Songbook::WriteChordPro(chosen.song).toUtf8()});
        report.Progress(files.size(), songs.songs.size(), u"músicas"_qs);
    }
    return files;
}
