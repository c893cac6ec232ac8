// The RTF reader against any bytes, against what a rendered song has to read back as, and against
// the writer.

#include "Input.h"
#include "Songs.h"

#include "chords/Cifra.h"
#include "chords/Notas.h"
#include "controls/RtfReader.h"
#include "controls/RtfWriter.h"
#include "controls/StandIns.h"
#include "runtime/Text.h"

#include <QStringList>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

using namespace Fuzz;

namespace {

constexpr int SheetSize = 34; // half points
constexpr std::uint32_t ChordColour = 0x0066CC;

const std::array<QString, 56>& RtfPieces()
{
    static const std::array<QString, 56> pieces = {u"{"_qs,
                                                   u"{"_qs,
                                                   u"{"_qs,
                                                   u"}"_qs,
                                                   u"}"_qs,
                                                   u"}"_qs,
                                                   u"\\par "_qs,
                                                   u"\\par"_qs,
                                                   u"\\b "_qs,
                                                   u"\\b0"_qs,
                                                   u"\\cf1 "_qs,
                                                   u"\\cf0"_qs,
                                                   u"\\cf2 "_qs,
                                                   u"\\cf-1"_qs,
                                                   u"\\fs34 "_qs,
                                                   u"\\fs0 "_qs,
                                                   u"\\fs99999 "_qs,
                                                   u"\\fs-5 "_qs,
                                                   u"\\plain "_qs,
                                                   u"\\pard "_qs,
                                                   u"\\uc1 "_qs,
                                                   u"\\uc0 "_qs,
                                                   u"\\uc3 "_qs,
                                                   u"\\u8364 ?"_qs,
                                                   u"\\u-257 "_qs,
                                                   u"\\u10 "_qs,
                                                   u"\\u55356 ?"_qs,
                                                   u"\\u57271 "_qs,
                                                   u"\\'e9"_qs,
                                                   u"\\'8"_qs,
                                                   u"\\'0d"_qs,
                                                   u"\\~"_qs,
                                                   u"\\_"_qs,
                                                   u"\\*"_qs,
                                                   u"\\tab "_qs,
                                                   u"\\bin3 "_qs,
                                                   u"\\bin99999999999 "_qs,
                                                   u"\\fonttbl"_qs,
                                                   u"\\colortbl "_qs,
                                                   u"\\red255"_qs,
                                                   u"\\green102 "_qs,
                                                   u"\\blue204;"_qs,
                                                   u";"_qs,
                                                   u"\\f0 "_qs,
                                                   u"\\f1 Arial;"_qs,
                                                   u"\\deff1 "_qs,
                                                   u"\\pict "_qs,
                                                   u"\\info "_qs,
                                                   u"texto "_qs,
                                                   u"ação"_qs,
                                                   u"\r\n"_qs,
                                                   u"\n"_qs,
                                                   u"\\\\"_qs,
                                                   u"\\{"_qs,
                                                   u"\\"_qs,
                                                   u"{\\colortbl ;\\red0\\green102\\blue204;}"_qs};
    return pieces;
}

const std::array<QString, 13>& TextPieces()
{
    static const std::array<QString, 13> pieces = {
        u"\n"_qs, u" "_qs,   u"C  G7"_qs, u"ação"_qs,       u"\\"_qs, u"{"_qs,     u"}"_qs,
        u"7"_qs,  u"-1 "_qs, u"\\par"_qs, u"\U0001F3B5"_qs, u"\t"_qs, u"\u00A0"_qs};
    return pieces;
}

/// What holds of every document, wherever it comes from.
void CheckDocument(const Rtf::Document& document)
{
    qsizetype length = 0;
    for (std::size_t i = 0; i < document.runs.size(); ++i) {
        const Rtf::Run& run = document.runs[i];
        length += run.length;
        Holds("no run is empty", run.length > 0);
        Holds("neighbours differ", i == 0 || run.format != document.runs[i - 1].format);
        Holds("sizes are bounded",
              run.format.halfPoints >= 1 && run.format.halfPoints <= Rtf::LargestSize);
    }
    Same("length of the runs", length, document.text.size());
    Holds("size at the start", document.halfPoints >= 1 && document.halfPoints <= Rtf::LargestSize);
    Holds("CR is no text", !document.text.contains(u'\r'));
}

QString Described(const Rtf::Document& document)
{
    QString text = u"font <%1> size %2:"_qs.arg(document.fontName).arg(document.halfPoints);
    QStringView rest = document.text;
    for (const Rtf::Run& run : document.runs) {
        text += u"\n%1 %2 %3 <%4>"_qs.arg(run.format.bold)
                    .arg(run.format.halfPoints)
                    .arg(run.format.colour ? QString::number(*run.format.colour, 16) : u"-"_qs)
                    .arg(rest.first(run.length));
        rest = rest.sliced(run.length);
    }
    return text;
}

/// Put into a text document run by run, as the display does, and read from there: whole, also where
/// lines are cut or characters mean something to the text document.
void ShowAndReadBack(const Rtf::Document& document)
{
    // Few enough that lines of any input are cut.
    constexpr StandIns::Limits Few = {5, 2};
    static QTextDocument shown;
    shown.clear();
    StandIns standIns(Few);
    QTextCursor cursor(&shown);
    QStringView rest = document.text;
    for (const Rtf::Run& run : document.runs) {
        QTextCharFormat look;
        look.setFontWeight(run.format.bold ? QFont::Bold : QFont::Normal);
        standIns.Insert(cursor, rest.first(run.length), look);
        rest = rest.sliced(run.length);
    }
    QString lines = document.text;
    Same("shown and read back", lines.replace(u"\n"_qs, u"\r\n"_qs), standIns.Text(shown));
}

void WriteAndReadBack(Rtf::Document document)
{
    ShowAndReadBack(document);
    for (const QChar special : u"\\{};\r\n"_qs)
        document.fontName.remove(special);
    document.fontName = document.fontName.trimmed().left(256).trimmed();
    Same("written and read back", Described(document), Described(Rtf::Read(Rtf::Write(document))));
}

void ReadAnything(Input& input)
{
    const Rtf::Document document = Rtf::Read(input.Text(1 << 20, RtfPieces()));
    CheckDocument(document);
    WriteAndReadBack(document);
}

/// A document that an editor might hold, in formats by chance.
void WriteAnything(Input& input)
{
    Rtf::Document document;
    document.fontName = input.Text(6, TextPieces());
    while (!input.AtEnd() && document.runs.size() < 50) {
        Rtf::Format format;
        format.bold = input.Flag();
        if (input.Flag())
            format.colour = static_cast<std::uint32_t>(input.Byte() << 16 | input.Byte());
        format.halfPoints =
            std::clamp(static_cast<int>(input.Whole()) + SheetSize, 1, Rtf::LargestSize);
        QString text = input.Text(input.Below(16), TextPieces());
        text.remove(u'\r');
        document.Append(text, format);
    }
    CheckDocument(document);
    WriteAndReadBack(document);
}

void LoadNotes()
{
    Funcoes::Notas[0] = Funcoes::Notas_Mais[0] = u"?"_qs;
    std::copy(Roots().begin(), Roots().end(), Funcoes::Notas.begin() + 1);
    std::copy(FlatRoots().begin(), FlatRoots().end(), Funcoes::Notas_Mais.begin() + 1);
}

/// The document that a sheet stands for, put together from the song line by line, without RTF.
class Expected
{
public:
    Expected(std::int16_t step, bool chords)
        : m_chords(chords)
    {
        const int size = SheetSize + step;
        m_plain.halfPoints = size > 0 ? std::min(size, Rtf::LargestSize) : Rtf::DefaultSize;
    }

    Rtf::Document Of(QString song)
    {
        song.remove(u'%').replace(u"\r\n"_qs, u"£"_qs);
        const QStringList lines = QString(song + u'£').split(u'£');
        for (qsizetype i = 0; i < lines.size(); ++i)
            Line(lines[i], i == 0);
        if (m_document.text.endsWith(u'\n')) {
            m_document.text.chop(1);
            if (--m_document.runs.back().length == 0)
                m_document.runs.pop_back();
        }
        // With no text in between, the formats of the last line are those of the text's start.
        m_document.halfPoints = m_plain.halfPoints;
        m_document.fontName = u"Consolas"_qs;
        return m_document;
    }

private:
    void Line(QString line, bool first)
    {
        // As the renderer sees it, signs of RTF are no part of a chord line.
        const bool special = line.contains(u'\\') || line.contains(u'{') || line.contains(u'}');
        Rtf::Format format = m_plain;
        if (!special && Funcoes::Linha_Cifra(line)) {
            if (!m_chords)
                return;
            format.bold = true;
            format.colour = ChordColour;
            line = Rewritten(line);
        } else {
            first = false;
            format.bold = line.startsWith(u"    ");
            if (format.bold)
                line = Text::UCase(line);
        }
        if (!first)
            m_document.Append(u"\n", m_plain);
        m_document.Append(line.remove(u'\r').remove(u'\n'), format);
    }

    /// Names that are none vanish; all others stay what they are.
    static QString Rewritten(const QString& line)
    {
        QString result;
        for (qsizetype i = 0; i < line.size(); ++i) {
            const QChar next = i + 1 < line.size() ? line[i + 1] : QChar(u' ');
            const bool pair = (next == u'#' || next == u'b') && line[i] != u'(';
            // A blank ends a chord whatever follows it.
            if (!pair || line[i] == u' ') {
                result += line[i];
                continue;
            }
            const QString name = line.mid(i++, 2);
            if (std::find(Roots().begin(), Roots().end(), name) != Roots().end() ||
                std::find(FlatRoots().begin(), FlatRoots().end(), name) != FlatRoots().end())
                result += name;
        }
        return result;
    }

    bool m_chords;
    Rtf::Format m_plain;
    Rtf::Document m_document;
};

void ReadASheet(Input& input)
{
    LoadNotes();
    const std::int16_t step = input.Whole();
    if (step > 32767 - SheetSize)
        return; // an error, not a sheet
    const bool chords = input.Below(4) != 0;
    const QString song = input.Text(4096, SongPieces());
    const Rtf::Document document = Rtf::Read(Funcoes::Monta_Cifra(song, 0, step, chords));
    CheckDocument(document);
    Same("sheet read back", Described(Expected(step, chords).Of(song)), Described(document));
}

QString OpenedAndSaved(const QString& song)
{
    return Rtf::Read(Funcoes::Monta_Cifra(song, 0, 0, true)).text.replace(u"\n"_qs, u"\r\n"_qs);
}

/// Songs as they are written keep their text through any number of openings.
void OpenAndSave(Input& input)
{
    LoadNotes();
    QString song;
    bool lyricFirst = false;
    bool lineHasText = false;
    for (int pieces = 0; pieces < 200 && !input.AtEnd(); ++pieces) {
        const unsigned choice = input.Below(6);
        if (choice == 0) {
            song += u"\r\n"_qs;
            lineHasText = false;
        } else if (choice == 1 && !lineHasText) {
            song += input.Of({u"Santo Deus"_qs, u"{[(água)]}"_qs, u"50\\50"_qs, u"É 1\u00A0só"_qs,
                              u"    REFRÃO"_qs, u"\U0001F3B5 Lá, lá"_qs});
            lyricFirst = lyricFirst || !song.contains(u'\n');
            song += u"\r\n"_qs;
        } else {
            song += (input.Flag() ? Roots() : FlatRoots())[input.Below(12)] +
                    Endings()[input.Below(8)] + input.Of({u" "_qs, u"   "_qs, u" | "_qs});
            lineHasText = true;
        }
    }
    const QString once = OpenedAndSaved(song);
    Same("opened and saved", lyricFirst ? QString(u"\r\n" + song) : song, once);
    Same("opened and saved twice", once, OpenedAndSaved(once));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    switch (input.Below(5)) {
    case 0:
    case 1:
        ReadAnything(input);
        break;
    case 2:
        WriteAnything(input);
        break;
    case 3:
        ReadASheet(input);
        break;
    default:
        OpenAndSave(input);
    }
    return 0;
}
