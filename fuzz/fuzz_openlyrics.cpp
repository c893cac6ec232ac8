// OpenLyrics: a document reads alike with its text in entities or in references; any bytes are read
// or refused; what is read comes back through the ChordPro writer.

#include "Input.h"
#include "SongsTakenBack.h"
#include "XmlSpelling.h"

#include "songbook/Source.h"

#include <vector>

using namespace Fuzz;

namespace {

const std::vector<QString>& Words()
{
    static const std::vector<QString> words = {
        u" "_qs,  u"\n   "_qs, u"\t"_qs,     u"Santo"_qs,  u"ção"_qs,    u"Bom"_qs,
        u"A"_qs,  u"C"_qs,     u"(2x)"_qs,   u"[C]"_qs,    u"{t: x}"_qs, u"#"_qs,
        u"\\"_qs, u"%"_qs,     u"<&>"_qs,    u"£"_qs,      u"\u00A0"_qs, u"\U0001F3B8"_qs,
        u"-"_qs,  u"'"_qs,     u"\u2028"_qs, u"\u0301"_qs, u"}"_qs,      u"x"_qs};
    return words;
}

/// One document in two spellings, grown together.
struct Twins
{
    QString escaped;
    QString referenced;

    void Markup(const QString& markup)
    {
        escaped += markup;
        referenced += markup;
    }

    void Text(const QString& text)
    {
        escaped += Escaped(text);
        referenced += Referenced(text);
    }
};

void AddMixed(Input& input, Twins& twins, unsigned depth)
{
    for (unsigned parts = input.Below(8); parts > 0 && !input.AtEnd(); --parts) {
        switch (input.Below(8)) {
        case 0:
            twins.Markup(u"<br/>"_qs);
            break;
        case 1:
            twins.Markup(u"<chord name=\"%1\"/>"_qs.arg(
                input.Of({u"C"_qs, u"G7"_qs, u"Cmaj7"_qs, u"Bm7b5"_qs, u"la"_qs, u""_qs})));
            break;
        case 2:
            twins.Markup(u"<comment>rit.</comment>"_qs);
            break;
        case 3: {
            const QString name = input.Of({u"chord"_qs, u"tag"_qs, u"beat"_qs, u"line"_qs});
            twins.Markup(u'<' + name + u" root=\"F#\" structure=\"min7\" bass=\"Cb\">");
            if (depth < 20)
                AddMixed(input, twins, depth + 1);
            twins.Markup(u"</" + name + u'>');
            break;
        }
        default:
            twins.Text(XmlText(input.Text(input.Below(12), Words())));
        }
    }
}

Twins Documents(Input& input)
{
    Twins twins;
    twins.Markup(u"<song xmlns=\"http://openlyrics.info/namespace/2009/song\"><properties>"
                 u"<titles><title>"_qs);
    twins.Text(XmlText(input.Text(input.Below(12), Words())));
    twins.Markup(u"</title></titles><themes><theme>a</theme></themes></properties><lyrics>"_qs);
    while (!input.AtEnd()) {
        twins.Markup(u"<verse name=\"%1\"%2><lines%3>"_qs.arg(
            input.Of({u"v1"_qs, u"c"_qs, u"b2"_qs, u"i"_qs, u""_qs}),
            input.Of({u""_qs, u" lang=\"en\""_qs, u" lang=\"he\" translit=\"en\""_qs}),
            input.Of({u""_qs, u" repeat=\"2\""_qs, u" part=\"todos\""_qs})));
        AddMixed(input, twins, 0);
        twins.Markup(u"</lines></verse>"_qs);
    }
    twins.Markup(u"</lyrics></song>"_qs);
    return twins;
}

Songbook::Reading Read(const QByteArray& bytes)
{
    return Songbook::ReadSource(bytes, u"nome"_qs).reading;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Songbook::LoadUsualScale();
    Input input(data, size);
    if (input.Below(4) == 0) {
        TakenBack(Read(input.Rest()));
        return 0;
    }
    const Twins twins = Documents(input);
    const Songbook::Reading reading = Read(twins.escaped.toUtf8());
    Holds("the document is well-formed", reading.failure.isEmpty());
    TakenBack(reading);
    SameReading("in references", reading, Read(twins.referenced.toUtf8()));
    return 0;
}
