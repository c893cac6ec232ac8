#pragma once

#include "Input.h"

#include "songbook/ChordProReader.h"
#include "songbook/ChordProWriter.h"
#include "songbook/Reading.h"
#include "songbook/UsualScale.h"

/// What the fuzzers of the song readers share.
namespace Fuzz {

inline void SameSong(const char* what, const ExchangeSong& one, const ExchangeSong& other)
{
    Same(what, one.titulo.value_or(u"<null>"_qs), other.titulo.value_or(u"<null>"_qs));
    Same(what, one.referencia.value_or(u"<null>"_qs), other.referencia.value_or(u"<null>"_qs));
    Same(what, one.letra1.value_or(u"<null>"_qs), other.letra1.value_or(u"<null>"_qs));
    Same(what, one.letra2.value_or(u"<null>"_qs), other.letra2.value_or(u"<null>"_qs));
    Same(what, one.tom.value_or(u"<null>"_qs), other.tom.value_or(u"<null>"_qs));
    Same(what, one.variacao.value_or(u"<null>"_qs), other.variacao.value_or(u"<null>"_qs));
    Same(what, std::int64_t{one.categoria.value_or(-1)},
         std::int64_t{other.categoria.value_or(-1)});
    Same(what, one.temas.join(u'\n'), other.temas.join(u'\n'));
}

/// Two spellings of one source must read alike.
inline void SameReading(const char* what, const Songbook::Reading& one,
                        const Songbook::Reading& other)
{
    Same(what, one.failure, other.failure);
    Same(what, std::int64_t{one.songs.size()}, std::int64_t{other.songs.size()});
    for (qsizetype i = 0; i < one.songs.size(); ++i)
        SameSong(what, one.songs[i], other.songs[i]);
}

/// Every song that was read, written as ChordPro and read again, is the same song.
inline void TakenBack(const Songbook::Reading& reading)
{
    for (const ExchangeSong& song : reading.songs) {
        Holds("rows end with CR LF",
              song.letra1->count(u'\r') == song.letra1->count(u"\r\n"_qs) &&
                  song.letra1->count(u'\n') == song.letra1->count(u"\r\n"_qs));
        const Songbook::Reading back =
            Songbook::ReadChordPro(Songbook::WriteChordPro(song), u"?"_qs);
        Same("songs taken back", std::int64_t{back.songs.size()}, std::int64_t{1});
        SameSong("song taken back", song, back.songs.first());
    }
}

} // namespace Fuzz
