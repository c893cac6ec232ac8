#include "songbook/ChordTextReader.h"

#include "songbook/ChordName.h"
#include "songbook/SectionName.h"
#include "songbook/SongDraft.h"
#include "songbook/SourceText.h"

#include <QRegularExpression>

#include <optional>

namespace Songbook {

namespace {

/// What a line is by itself.
enum class LineKind { Blank, Chords, Heading, Lyrics };

struct TextLine
{
    LineKind kind = LineKind::Blank;
    QString text;    ///< without tabs and blanks at its end
    QString heading; ///< of a Heading
    int number = 0;
};

/// Bars, beats and repeats, which stand among chords.
bool IsFiller(QStringView word)
{
    static const QRegularExpression form(QStringLiteral(
        "^(?:[|:/\\\\\\-\u2013\u2014.~%*]+|\\(?[xX\u00D7]?\\d{1,2}[xX\u00D7]?\\)?)$"));
    return form.match(word.toString()).hasMatch();
}

/// A word before the chords: "Intro:".
bool IsLabel(QStringView word)
{
    return word.size() > 2 && word.back() == u':';
}

bool IsRowOfChords(QStringView row)
{
    int chords = 0;
    bool first = true;
    for (const Word& word : WordsOf(row)) {
        if (SpellChord(word.text, ChordSpelling::Loose))
            ++chords;
        else if (!IsFiller(word.text) && !(first && IsLabel(word.text)))
            return false;
        first = false;
    }
    return chords > 0;
}

/// @return the row with fillers in signs that a chord line may hold; columns stay
QString WithUsualFillers(const QString& row)
{
    QString usual = row;
    for (const Word& word : WordsOf(row)) {
        if (!IsFiller(word.text))
            continue;
        for (qsizetype i = 0; i < word.text.size(); ++i) {
            QChar& sign = usual[word.column + i];
            if (sign == u'\u00D7' || sign == u'X')
                sign = u'x';
            else if (!sign.isDigit() && !QStringView(u"x|:/-()").contains(sign))
                sign = sign == u'\\' ? u'/' : u'-';
        }
    }
    return usual;
}

TextLine Classified(const SourceLine& line)
{
    TextLine classified;
    classified.number = line.number;
    classified.text = WithoutTabs(line.text);
    while (!classified.text.isEmpty() && classified.text.back().isSpace() &&
           classified.text.back() != u'\u00A0')
        classified.text.chop(1);
    if (classified.text.isEmpty())
        return classified;
    classified.heading = SectionOfLine(classified.text);
    classified.kind = !classified.heading.isEmpty()    ? LineKind::Heading
                      : IsRowOfChords(classified.text) ? LineKind::Chords
                                                       : LineKind::Lyrics;
    return classified;
}

/// "[Solo] C  G": the name of a part before its chords.
std::optional<QString> NamedChords(const QString& row, QString& chords)
{
    static const QRegularExpression form(
        QStringLiteral("^\\s*\\[([^\\[\\]]{1,40})\\]:?\\s+(\\S.*)$"));
    const auto match = form.match(row);
    if (!match.hasMatch() || !IsRowOfChords(match.captured(2)))
        return std::nullopt;
    chords = match.captured(2);
    return match.captured(1).trimmed();
}

/// "Tom: G"
struct Field
{
    QString name; ///< in small letters
    QString value;
};

class TextSong
{
public:
    Reading Read(const QString& text, const QString& name)
    {
        for (const SourceLine& line : LinesOf(text))
            m_lines.append(Classified(line));
        ReadHead();
        while (m_at < m_lines.size())
            ReadNext();
        Reading reading;
        if (m_song.IsEmpty())
            return Failed(u"não há música no arquivo"_qs);
        reading.songs.append(m_song.Finish(name, m_remarks));
        reading.remarks = m_remarks.All();
        return reading;
    }

private:
    /// Fields may stand before the title, behind it or on both sides.
    void ReadHead()
    {
        ReadFields();
        while (m_at < m_lines.size() && m_lines[m_at].kind == LineKind::Blank)
            ++m_at;
        if (m_song.HasTitle())
            return;
        ReadTitleParagraph();
        ReadFields();
    }

    /// Reads the lines that tell fields, and the blank ones among them.
    void ReadFields()
    {
        for (qsizetype at = m_at; at < m_lines.size(); ++at) {
            const TextLine& line = m_lines[at];
            if (line.kind == LineKind::Blank)
                continue;
            const std::optional<Field> field = FieldOf(line);
            if (!field)
                break;
            SetField(*field, line.number);
            m_at = at + 1;
        }
    }

    /// @return the field that the line tells
    static std::optional<Field> FieldOf(const TextLine& line)
    {
        static const QRegularExpression form(
            QStringLiteral(
                "^\\s*(t\u00EDtulo|titulo|title|artista|artist|int\u00E9rprete|interprete|"
                "cantora?|banda|autora?|author|compositora?|"
                "refer\u00EAncia|referencia|tom|key|capo|capotraste|temas?|themes?|"
                "categoria)\\s*:\\s*(\\S.*)$"),
            QRegularExpression::CaseInsensitiveOption |
                QRegularExpression::UseUnicodePropertiesOption);
        const auto match = form.match(line.text);
        if (!match.hasMatch())
            return std::nullopt;
        return Field{match.captured(1).toLower(), match.captured(2).trimmed()};
    }

    void SetField(const Field& field, int line)
    {
        const QString& name = field.name;
        if (name.startsWith(u"t\u00EDt") || name.startsWith(u"tit"))
            m_song.AddTitle(field.value, line, m_remarks);
        else if (name == u"tom" || name == u"key")
            m_song.SetKey(field.value, line, m_remarks);
        else if (name.startsWith(u"capo"))
            m_song.SetCapo(field.value);
        else if (name.startsWith(u"t"))
            AddThemes(field.value);
        else if (name == u"categoria")
            SetCategory(field.value, line);
        else
            m_song.AddArtist(field.value);
    }

    void AddThemes(const QString& themes)
    {
        static const QRegularExpression separator(QStringLiteral("[;,]"));
        for (const QString& theme : themes.split(separator))
            m_song.AddTheme(theme);
    }

    void SetCategory(const QString& value, int line)
    {
        if (value.compare(u"Secular", Qt::CaseInsensitive) == 0)
            m_song.SetCategory(2);
        else if (value.compare(u"Religiosa", Qt::CaseInsensitive) != 0)
            m_remarks.Lost(line, u"a categoria \"%1\" não foi reconhecida"_qs.arg(Excerpt(value)));
    }

    /// A paragraph of its own before the song: its title; two lines of it before a song with chords
    /// are title and artist, unless a field told the artist. Lines below them may tell fields.
    void ReadTitleParagraph()
    {
        qsizetype end = m_at;
        while (end < m_lines.size() && end - m_at < 3 && IsTitle(m_lines[end]))
            ++end;
        const qsizetype length = end - m_at;
        qsizetype behind = end;
        while (length > 0 && behind < m_lines.size() && FieldOf(m_lines[behind]))
            ++behind;
        const bool ends = behind + 1 < m_lines.size() &&
                          (m_lines[behind].kind == LineKind::Blank || behind > end);
        const bool artist = length == 2 && HasChords() && !m_song.HasArtist();
        if (!ends || (length != 1 && !artist) || m_lines[m_at].text.startsWith(u"    "))
            return;
        const TextLine& title = m_lines[m_at];
        m_song.AddTitle(title.text, title.number, m_remarks);
        m_remarks.Note(title.number, u"esta linha ficou sendo o título"_qs);
        if (artist) {
            m_song.AddArtist(m_lines[m_at + 1].text);
            m_remarks.Note(title.number + 1, u"esta linha ficou sendo a referência"_qs);
        }
        m_at = end;
    }

    /// @return true for a line that is neither a field nor sung nor played
    static bool IsTitle(const TextLine& line)
    {
        QString chords;
        return line.kind == LineKind::Lyrics && !FieldOf(line) && !NamedChords(line.text, chords);
    }

    bool HasChords() const
    {
        for (const TextLine& line : m_lines) {
            if (line.kind == LineKind::Chords)
                return true;
        }
        return false;
    }

    void ReadNext()
    {
        const TextLine& line = m_lines[m_at++];
        SheetText& text = m_song.Text();
        QString chords;
        if (line.kind == LineKind::Blank) {
            text.AddBlank();
        } else if (line.kind == LineKind::Heading) {
            text.AddHeading(line.heading);
        } else if (line.kind == LineKind::Chords) {
            ReadChords(line);
        } else if (const auto part = NamedChords(line.text, chords)) {
            text.AddHeading(*part);
            text.AddPieces(CutAtMarks(WithUsualFillers(chords), {}), line.number, m_remarks);
        } else if (line.text.startsWith(u"    ") && StandsAlone()) {
            text.AddHeading(line.text);
        } else {
            text.AddLyric(line.text);
        }
    }

    /// @return true when the line just taken follows a blank one or nothing: so headings stand
    bool StandsAlone() const { return m_at < 2 || m_lines[m_at - 2].kind == LineKind::Blank; }

    void ReadChords(const TextLine& line)
    {
        QString lyric;
        if (m_at < m_lines.size() && m_lines[m_at].kind == LineKind::Lyrics)
            lyric = m_lines[m_at++].text;
        QList<MarkedPiece> pieces = CutAtMarks(WithUsualFillers(line.text), lyric);
        for (MarkedPiece& piece : pieces)
            piece.exact = !SpellChord(piece.mark, ChordSpelling::Loose);
        m_song.Text().AddPieces(pieces, line.number, m_remarks);
    }

    QList<TextLine> m_lines;
    qsizetype m_at = 0; ///< index of the next line, from 0
    SongDraft m_song;
    Remarks m_remarks;
};

} // namespace

Reading ReadChordText(const QString& text, const QString& name)
{
    return TextSong().Read(text, name);
}

} // namespace Songbook
