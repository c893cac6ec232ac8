#pragma once

#include "songbook/Source.h"

#include <QString>
#include <QStringList>

/// A reading as a text that a person can check: what the museum's files are compared with.
namespace SongDump {

inline QString Kind(Songbook::SourceKind kind)
{
    using Songbook::SourceKind;
    switch (kind) {
    case SourceKind::ChordPro:
        return u"ChordPro"_qs;
    case SourceKind::OpenSong:
        return u"OpenSong"_qs;
    case SourceKind::OpenLyrics:
        return u"OpenLyrics"_qs;
    case SourceKind::ChordText:
        return u"texto"_qs;
    case SourceKind::Exchange:
        return u"arquivo do Melodario"_qs;
    case SourceKind::Catalogue:
        return u"catálogo"_qs;
    case SourceKind::Unknown:
        return u"desconhecido"_qs;
    }
    return {};
}

/// No-break spaces are shown as "␣".
inline QString Visible(QString text)
{
    return text.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\u00A0', u'\u2423');
}

inline QString Song(const ExchangeSong& song)
{
    QString dump = u"TITULO: "_qs + *song.titulo + u"\nREFERENCIA: " + *song.referencia +
                   u"\nTOM: " + *song.tom + u"\nVARIACAO: " + *song.variacao + u"\nCATEGORIA: " +
                   QString::number(*song.categoria) + u"\nTEMAS: " + song.temas.join(u" | ") +
                   u"\n== letra1\n" + Visible(*song.letra1) + u'\n';
    if (song.letra2 != song.letra1)
        dump += u"== letra2\n" + Visible(*song.letra2) + u'\n';
    return dump;
}

inline QString Remark(const Songbook::Remark& remark)
{
    const QString kind = remark.kind == Songbook::Remark::Kind::Lost ? u"perdido"_qs : u"nota"_qs;
    return kind + u' ' + QString::number(remark.line) + u": " + remark.what + u'\n';
}

inline QString Whole(const Songbook::Source& source)
{
    QString dump = Kind(source.kind) + u'\n';
    if (!source.reading.failure.isEmpty())
        dump += u"FALHA "_qs + QString::number(source.reading.failureLine) + u": " +
                source.reading.failure + u'\n';
    for (const ExchangeSong& song : source.reading.songs)
        dump += Song(song);
    dump += u"== observações\n";
    for (const Songbook::Remark& remark : source.reading.remarks)
        dump += Remark(remark);
    return dump;
}

} // namespace SongDump
