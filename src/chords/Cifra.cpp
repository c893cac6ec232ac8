#include "chords/Cifra.h"

#include "chords/ChordLine.h"
#include "chords/LineCutter.h"
#include "runtime/Number.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace {

using namespace Chords;

constexpr int BaseSize = 34; // half points

constexpr char16_t Head[] =
    u"{\\rtf1\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Consolas;}}\r\n"
    u"{\\colortbl ;\\red0 \\green102 \\blue204;\\red255 \\green255 \\blue255;}\r\n"
    u"\\viewkind4\\uc1\\pard\\lang1046\\f0\\fs";
constexpr qsizetype HeadRoom = 512; // for Head and what follows it

/// Leaves the outcome of the last lookup behind; without one Tabela_Nota stays as it is.
void TellLookup(NoteCode last)
{
    if (last != NoLookup)
        Funcoes::Tabela_Nota = TableOf(last);
}

/// One rendering: the document, and what must be known of the notes to write it.
class SheetWriter
{
public:
    SheetWriter(QStringView texto, std::int16_t deslocamento, bool exibe_cifras);
    ~SheetWriter() { TellLookup(m_lastLookup); }
    Q_DISABLE_COPY_MOVE(SheetWriter)

    void Header(std::int16_t ajuste_fonte);
    void Line(QStringView line, bool first);
    QString Finish();

private:
    bool Chords(QStringView line, bool first);
    void Lyrics(QStringView line);
    void Capitals(QStringView text);
    void Remember(const LineEnd& end) noexcept;
    [[noreturn]] void Fail(NoteCode missing);

    std::int16_t m_offset;
    bool m_showChords;
    NoteTable m_notes;
    ShiftedNames m_names;
    NoteCode m_lastLookup = NoLookup;
    SheetBuffer m_sheet;
};

SheetWriter::SheetWriter(QStringView texto, std::int16_t deslocamento, bool exibe_cifras)
    : m_offset(deslocamento)
    , m_showChords(exibe_cifras)
    , m_names(deslocamento)
    , m_sheet(2 * texto.size() + HeadRoom)
{
}

void SheetWriter::Header(std::int16_t ajuste_fonte)
{
    const QString size = QString::number(Number::AddInteger(BaseSize, ajuste_fonte));
    m_sheet.Put(Head);
    m_sheet.Put(size);
    m_sheet.Put(u"\r\n");
}

void SheetWriter::Line(QStringView line, bool first)
{
    m_sheet.Reserve(SheetInk::Room(line));
    if (!Chords(line, first))
        Lyrics(line);
}

/// @return false, with nothing written, when line is a lyric line
bool SheetWriter::Chords(QStringView line, bool first)
{
    if (!m_showChords) {
        const LineEnd end = WalkChordLine(line, m_notes, NoInk(), nullptr);
        Remember(end);
        return end.chords;
    }
    const qsizetype before = m_sheet.Size();
    if (!first)
        m_sheet.Put(u"\\par ");
    m_sheet.Put(u"\\cf1\\b ");
    const LineEnd end =
        WalkChordLine(line, m_notes, SheetInk(line, m_names, m_sheet), m_sheet.Next());
    Remember(end);
    if (!end.chords) {
        m_sheet.Rewind(before);
        return false;
    }
    // Only now, because in a lyric line the same note would do no harm.
    if (end.missing != NoNote) [[unlikely]]
        Fail(end.missing);
    m_sheet.Advance(end.written);
    m_sheet.Put(u"\\cf0\\b0\r\n");
    return true;
}

void SheetWriter::Remember(const LineEnd& end) noexcept
{
    if (end.last != NoLookup)
        m_lastLookup = end.last;
}

/// Raises the error of a note that the offset leads out of its array.
void SheetWriter::Fail(NoteCode missing)
{
    m_lastLookup = missing;
    TellLookup(missing);
    Funcoes::Transpoe_Nota(IndexOf(missing), m_offset);
    RuntimeError::ThrowSubscriptOutOfRange();
}

void SheetWriter::Lyrics(QStringView line)
{
    m_sheet.Put(u"\\par ");
    if (line.size() >= 4 && AreFourBlanks(line.utf16())) {
        m_sheet.Put(u"\\b ");
        Capitals(line);
        m_sheet.Put(u"\\b0");
    } else {
        m_sheet.Put(line);
    }
    m_sheet.Put(u"\r\n");
}

void SheetWriter::Capitals(QStringView text)
{
    char16_t* next = m_sheet.Next();
    for (const QChar letter : text) {
        const char16_t unit = letter.unicode();
        if (unit >= 0x80)
            *next++ = Text::UCase(letter).unicode();
        else
            *next++ = unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 0x20) : unit;
    }
    m_sheet.Advance(next);
}

QString SheetWriter::Finish()
{
    m_sheet.Reserve(1);
    m_sheet.Put(u"}");
    return m_sheet.Take();
}

} // namespace

namespace Funcoes {

bool Linha_Cifra(QStringView linha)
{
    const NoteTable notes;
    const LineEnd end = WalkChordLine(linha, notes, NoInk(), nullptr);
    TellLookup(end.last);
    return end.chords;
}

QString Monta_Cifra(QStringView texto, std::int16_t deslocamento, std::int16_t ajuste_fonte,
                    bool exibe_cifras)
{
    SheetWriter sheet(texto, deslocamento, exibe_cifras);
    sheet.Header(ajuste_fonte);
    LineCutter cutter(texto);
    QStringView line;
    for (bool first = true; cutter.Next(line); first = false)
        sheet.Line(line, first);
    return sheet.Finish();
}

} // namespace Funcoes
