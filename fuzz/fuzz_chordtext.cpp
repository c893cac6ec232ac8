// Plain text with chords: read alike whichever way lines end and in whichever code page it is, and
// what is read comes back through the ChordPro writer and, one song or many, through that of texts.

#include "Input.h"
#include "SongsTakenBack.h"

#include "songbook/ChordTextReader.h"
#include "songbook/PlainTextReader.h"
#include "songbook/PlainTextWriter.h"
#include "songbook/SourceText.h"
#include "store/CodePage.h"

#include <vector>

using namespace Fuzz;

namespace {

const std::vector<QString>& Pieces()
{
    static const std::vector<QString> pieces = {
        u"\n"_qs,
        u"\n"_qs,
        u"\n\n"_qs,
        u" "_qs,
        u"    "_qs,
        u"\t"_qs,
        u"C"_qs,
        u"G7"_qs,
        u"Am"_qs,
        u"D/F#"_qs,
        u"Cmaj7"_qs,
        u"Bm7b5"_qs,
        u"Bb7M"_qs,
        u"(2x)"_qs,
        u"x2"_qs,
        u"| "_qs,
        u" . "_qs,
        u" – "_qs,
        u"%"_qs,
        u"Intro: "_qs,
        u"[Intro] "_qs,
        u"[Refrão]"_qs,
        u"Refrão:"_qs,
        u"Verse 2"_qs,
        u"1ª estrofe"_qs,
        u"[A]"_qs,
        u"Título: "_qs,
        u"Tom: "_qs,
        u"Tom: Bb\n"_qs,
        u"Artista: "_qs,
        u"Capo: 2\n"_qs,
        u"Temas: "_qs,
        u"Categoria: Secular\n"_qs,
        u"Santo"_qs,
        u"ção"_qs,
        u"Bom"_qs,
        u"Sob"_qs,
        u"A"_qs,
        u"E|--0--|"_qs,
        u"B|--1--|"_qs,
        u"{"_qs,
        u"["_qs,
        u"]"_qs,
        u"\\"_qs,
        u"\u00A0"_qs,
        u"£"_qs,
        u"\U0001F3B8"_qs,
        u"x"_qs,
        u"Título: a\nReferência: b\nTom: Am\nCategoria: Secular\nTemas: c; d\n\n"_qs,
        QString(u"\n" + Songbook::SongsApart() + u"\n\nTítulo: e\n")};
    return pieces;
}

/// A text of the song twice is read as that song twice.
void TakenBackFromText(const ExchangeSong& song)
{
    const QString written = Songbook::WritePlainText(song, 1);
    const QString book = written + u"\r\n" + Songbook::SongsApart() + u"\r\n\r\n" + written;
    Holds("a text is known as ours", Songbook::LooksLikePlainText(written));
    const Songbook::Reading back = Songbook::ReadPlainText(book, u"?"_qs);
    Same("songs taken back from a text", std::int64_t{back.songs.size()}, std::int64_t{2});
    SameSong("first song taken back from a text", song, back.songs.first());
    SameSong("second song taken back from a text", song, back.songs.last());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Songbook::LoadUsualScale();
    Input input(data, size);
    QString text = input.Flag() ? Songbook::DecodeText(input.Rest()) : input.Text(2048, Pieces());
    text.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\r', u'\n');
    const Songbook::Reading reading = Songbook::ReadChordText(text, u"nome"_qs);
    TakenBack(reading);
    // A text that has the line between songs in it would be cut there.
    for (const ExchangeSong& song : reading.songs) {
        if (!song.letra1->contains(Songbook::SongsApart()))
            TakenBackFromText(song);
    }
    // Also what looks like ours and was made by somebody else.
    for (const ExchangeSong& song : Songbook::ReadPlainText(text, u"nome"_qs).songs)
        TakenBackFromText(song);
    QString otherEnds = text;
    otherEnds.replace(u'\n', u'\r');
    SameReading("lines that end with CR", reading, Songbook::ReadChordText(otherEnds, u"nome"_qs));
    if (CodePage::Holds(text)) {
        const QByteArray narrow = CodePage::FromUnicode(text);
        const QString back = Songbook::DecodeText(narrow);
        // Some bytes of the code page are valid UTF-8 by chance, or a mark.
        if (back == text)
            SameReading("in the code page", reading, Songbook::ReadChordText(back, u"nome"_qs));
        else
            Holds("bytes are taken for UTF-8 or a mark",
                  QString::fromUtf8(narrow) == back || narrow.startsWith("\xFF\xFE") ||
                      narrow.startsWith("\xFE\xFF") || narrow.startsWith("\xEF\xBB\xBF"));
    }
    return 0;
}
