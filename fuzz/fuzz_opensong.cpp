// OpenSong: a document reads alike with its text in entities, in references or in another encoding;
// any bytes are read or refused; what is read comes back through the ChordPro writer.

#include "Input.h"
#include "SongsTakenBack.h"
#include "XmlSpelling.h"

#include "songbook/Source.h"

#include <vector>

using namespace Fuzz;

namespace {

const std::vector<QString>& Pieces()
{
    static const std::vector<QString> pieces = {
        u"\n"_qs,      u"\n"_qs,         u"\n."_qs,     u"\n "_qs,    u"\n1"_qs,   u"\n2"_qs,
        u"\n;"_qs,     u"\n[V1]\n"_qs,   u"\n[V]\n"_qs, u"\n[C] "_qs, u"["_qs,     u"]"_qs,
        u"\n---\n"_qs, u"|"_qs,          u"||"_qs,      u"_"_qs,      u"A_le"_qs,  u" "_qs,
        u"    "_qs,    u"\t"_qs,         u"C"_qs,       u"G7"_qs,     u"Cmaj7"_qs, u"Bm7b5"_qs,
        u"(2x)"_qs,    u"rit."_qs,       u"Santo"_qs,   u"ção"_qs,    u"Bom"_qs,   u"A"_qs,
        u"{t: x}"_qs,  u"#"_qs,          u"\\"_qs,      u"%"_qs,      u"<&>"_qs,   u"]]>"_qs,
        u"\u00A0"_qs,  u"\U0001F3B8"_qs, u"\u2028"_qs,  u"x"_qs};
    return pieces;
}

using Spelling = QString (*)(const QString&);

QString Document(const QString& title, const QString& key, const QString& lyrics, Spelling spelled)
{
    return u"<song><title>"_qs + spelled(title) + u"</title><key>" + spelled(key) +
           u"</key><author>Ana</author><theme>a;b</theme><lyrics>" + spelled(lyrics) +
           u"</lyrics></song>";
}

Songbook::Reading Read(const QByteArray& bytes)
{
    return Songbook::ReadSource(bytes, u"nome"_qs).reading;
}

QByteArray Utf16(const QString& text)
{
    QByteArray bytes("\xFF\xFE", 2);
    for (const QChar sign : text) {
        bytes += static_cast<char>(sign.cell());
        bytes += static_cast<char>(sign.row());
    }
    return bytes;
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
    const QString title = XmlText(input.Text(input.Below(16), Pieces()));
    const QString key = XmlText(input.Of({u"G"_qs, u"Bbm"_qs, u"Ré menor"_qs, u"?"_qs, u""_qs}));
    const QString lyrics = XmlText(input.Text(2048, Pieces()));
    const QString document = Document(title, key, lyrics, Escaped);
    const Songbook::Reading reading = Read(document.toUtf8());
    TakenBack(reading);
    SameReading("in references", reading, Read(Document(title, key, lyrics, Referenced).toUtf8()));
    SameReading("in UTF-16", reading, Read(Utf16(document)));
    return 0;
}
