// ChordPro: whatever is read comes back the same through the writer, whichever way lines end.

#include "Input.h"
#include "SongsTakenBack.h"

#include "songbook/SourceText.h"

#include <vector>

using namespace Fuzz;

namespace {

const std::vector<QString>& Pieces()
{
    static const std::vector<QString> pieces = {u"\n"_qs,
                                                u"\n"_qs,
                                                u" "_qs,
                                                u"    "_qs,
                                                u"[C]"_qs,
                                                u"[G7]"_qs,
                                                u"[Cmaj7]"_qs,
                                                u"[*rit.]"_qs,
                                                u"[*C]"_qs,
                                                u"[|]"_qs,
                                                u"[am]"_qs,
                                                u"[N.C.]"_qs,
                                                u"[F#m7b5]"_qs,
                                                u"[Sol]"_qs,
                                                u"[]"_qs,
                                                u"["_qs,
                                                u"]"_qs,
                                                u"{"_qs,
                                                u"}"_qs,
                                                u":"_qs,
                                                u"{title: "_qs,
                                                u"{t:x}\n"_qs,
                                                u"{artist: "_qs,
                                                u"{key: Bb}\n"_qs,
                                                u"{key: "_qs,
                                                u"{capo: 2}\n"_qs,
                                                u"{tag: "_qs,
                                                u"{comment: "_qs,
                                                u"{ci:"_qs,
                                                u"{soc}\n"_qs,
                                                u"{eoc}\n"_qs,
                                                u"{sot}\n"_qs,
                                                u"{eot}\n"_qs,
                                                u"{sog}\n"_qs,
                                                u"{eog}\n"_qs,
                                                u"{start_of_abc}\n"_qs,
                                                u"{end_of_abc}\n"_qs,
                                                u"{ns}\n"_qs,
                                                u"{x_linha: "_qs,
                                                u"{x_versao: 2}\n"_qs,
                                                u"{x_tom: "_qs,
                                                u"{x_variacao: "_qs,
                                                u"{x_categoria: 7}\n"_qs,
                                                u"{meta: "_qs,
                                                u"{chorus}\n"_qs,
                                                u"\\"_qs,
                                                u"\\u0041"_qs,
                                                u"\\u000a"_qs,
                                                u"#"_qs,
                                                u"<b>"_qs,
                                                u"%"_qs,
                                                u"£"_qs,
                                                u"\t"_qs,
                                                u"Santo"_qs,
                                                u"ção"_qs,
                                                u"Bom"_qs,
                                                u"A"_qs,
                                                u"\u00A0"_qs,
                                                u"| G . |"_qs,
                                                u"\U0001F3B8"_qs,
                                                u"\u2028"_qs,
                                                u"\uFEFF"_qs,
                                                u"label=\"x\""_qs,
                                                u"-guitar"_qs};
    return pieces;
}

/// @return the text without what only one of two spellings of its lines could hold
QString OneSpelling(QString text)
{
    return text.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\r', u'\n');
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Songbook::LoadUsualScale();
    Input input(data, size);
    const QString text =
        input.Flag() ? Songbook::DecodeText(input.Rest()) : input.Text(2048, Pieces());
    const QString even = OneSpelling(text);
    const Songbook::Reading reading = Songbook::ReadChordPro(even, u"nome"_qs);
    TakenBack(reading);
    QString otherEnds = even;
    otherEnds.replace(u"\n"_qs, u"\r\n"_qs);
    SameReading("lines that end with CR LF", reading,
                Songbook::ReadChordPro(otherEnds, u"nome"_qs));
    Songbook::LooksLikeChordPro(even);
    return 0;
}
