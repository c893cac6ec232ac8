#include "songbook/ChordProReader.h"

#include "songbook/ChordName.h"
#include "songbook/ChordProDirective.h"
#include "songbook/SectionName.h"
#include "songbook/SongDraft.h"
#include "songbook/SourceText.h"

#include <QRegularExpression>

namespace Songbook {

namespace {

/// @return the text with \uXXXX replaced, control characters apart
QString WithCodesReplaced(const QString& text)
{
    static const QRegularExpression code(QStringLiteral("\\\\u([0-9A-Fa-f]{4})"));
    QString plain;
    qsizetype at = 0;
    for (auto matches = code.globalMatch(text); matches.hasNext();) {
        const auto match = matches.next();
        const QChar sign(match.captured(1).toUShort(nullptr, 16));
        plain += QStringView(text).sliced(at, match.capturedStart() - at);
        if (sign >= u' ')
            plain += sign;
        else
            plain += match.capturedView();
        at = match.capturedEnd();
    }
    plain += QStringView(text).sliced(at);
    return plain;
}

/// @return the text with \uXXXX replaced and without the markup of fonts
QString PlainText(const QString& text, int line, Remarks& remarks)
{
    static const QRegularExpression markup(
        QStringLiteral("</?(?:b|i|u|s|big|small|sub|sup|tt|span|strut|sym)(?:\\s[^<>]*)?/?>"));
    QString plain = text.contains(u"\\u") ? WithCodesReplaced(text) : text;
    if (plain.contains(u'<') && plain.contains(markup)) {
        remarks.Note(line, u"a formatação dentro das linhas não foi mantida"_qs);
        plain.remove(markup);
    }
    return plain;
}

/// Lines that a backslash joins become one; it has the number of the first.
QList<SourceLine> JoinedLines(const QString& text)
{
    QList<SourceLine> lines;
    bool goesOn = false;
    for (SourceLine& line : LinesOf(text)) {
        const bool joins = line.text.endsWith(u'\\');
        if (joins)
            line.text.chop(1);
        if (goesOn) {
            qsizetype blanks = 0;
            while (blanks < line.text.size() && line.text[blanks].isSpace())
                ++blanks;
            lines.last().text += QStringView(line.text).sliced(blanks);
        } else {
            lines.append(line);
        }
        goesOn = joins;
    }
    return lines;
}

/// @return the line cut at its chords. What follows "[" without an end is text
QList<MarkedPiece> PiecesOf(const QString& line)
{
    QList<MarkedPiece> pieces;
    MarkedPiece piece;
    qsizetype at = 0;
    for (;;) {
        const qsizetype open = line.indexOf(u'[', at);
        const qsizetype close = open < 0 ? -1 : line.indexOf(u']', open);
        if (close < 0)
            break;
        piece.lyric = line.sliced(at, open - at);
        pieces.append(piece);
        piece = {line.sliced(open + 1, close - open - 1), {}, false};
        if (piece.mark.startsWith(u'*')) {
            piece.mark.remove(0, 1);
            piece.exact = true;
        }
        at = close + 1;
    }
    piece.lyric = line.sliced(at);
    pieces.append(piece);
    return pieces;
}

/// What the lines of the source belong to.
enum class Environment {
    Song,
    Tab,
    Grid,
    Foreign, ///< a notation that no sheet of ours can hold
};

class ChordProSongs
{
public:
    explicit ChordProSongs(const QString& name)
        : m_name(name)
    {
    }

    Reading Read(const QString& text)
    {
        for (const SourceLine& line : JoinedLines(text)) {
            m_line = line.number;
            ReadLine(line.text);
        }
        FinishSong();
        if (m_reading.songs.isEmpty())
            return Failed(u"não há música no arquivo"_qs);
        m_reading.remarks = m_remarks.All();
        return m_reading;
    }

private:
    SheetText& Text() { return m_song.Text(); }

    void ReadLine(const QString& line)
    {
        if (line.startsWith(u'#')) {
            m_remarks.Note(m_line, u"as linhas de comentário (#) ficaram de fora"_qs);
            return;
        }
        const auto directive = ReadDirective(line);
        if (directive)
            Obey(*directive);
        else if (m_environment == Environment::Song)
            ReadLyrics(line);
        else if (m_environment == Environment::Tab)
            Text().AddLyric(WithoutTabs(line));
        else if (m_environment == Environment::Grid)
            ReadGrid(line);
    }

    void ReadLyrics(const QString& line)
    {
        QString plain = PlainText(line, m_line, m_remarks);
        plain.replace(u'\t', u' ');
        Text().AddPieces(PiecesOf(plain), m_line, m_remarks);
    }

    /// "| G . . . | C . . . |": a held beat is shown as a hyphen.
    void ReadGrid(const QString& line)
    {
        QStringList cells;
        const QString plain = WithoutTabs(line);
        for (const Word& word : WordsOf(plain)) {
            const auto chord = SpellChord(word.text, ChordSpelling::Marked);
            if (chord)
                cells += *chord;
            else if (word.text == u"." || word.text == u"%" || word.text == u"%%")
                cells += u"-"_qs;
            else
                cells += word.text == u"|." ? u"||"_qs : word.text.toString();
        }
        const QString row = cells.join(u' ');
        if (IsChordRow(row))
            Text().AddExact(row);
        else
            Text().AddLyric(row);
    }

    void Obey(const ChordProDirective& directive)
    {
        if (!directive.selector.isEmpty()) {
            Leave(directive, u"só para "_qs + directive.selector);
            return;
        }
        if (!directive.Begins().isEmpty()) {
            Begin(directive);
            return;
        }
        if (!directive.Ends().isEmpty()) {
            m_environment = Environment::Song;
            return;
        }
        if (!Shown(directive) && !Described(directive) && !Ours(directive)) {
            if (directive.IsLayout())
                m_remarks.Note(m_line, u"a diagramação da página não foi mantida"_qs);
            else
                Leave(directive, {});
        }
    }

    void Leave(const ChordProDirective& directive, const QString& why)
    {
        QString what = u"sem lugar: {"_qs + directive.name;
        if (!directive.value.isEmpty())
            what += u": " + Excerpt(directive.value);
        what += u'}';
        m_remarks.Lost(m_line, why.isEmpty() ? what : what + u" (" + why + u')');
    }

    void Begin(const ChordProDirective& directive)
    {
        static const QStringList foreign = {u"abc"_qs, u"ly"_qs, u"svg"_qs, u"musicxml"_qs};
        const QString kind = directive.Begins();
        const bool isForeign = foreign.contains(kind);
        m_environment = isForeign                                ? Environment::Foreign
                        : kind == u"grid"                        ? Environment::Grid
                        : kind == u"tab" || kind == u"textblock" ? Environment::Tab
                                                                 : Environment::Song;
        if (isForeign)
            m_remarks.Lost(m_line, u"a parte em notação \"%1\" não tem lugar"_qs.arg(kind));
        const bool named = m_environment == Environment::Song || isForeign;
        QString label = directive.Label();
        if (m_environment == Environment::Grid &&
            !label.contains(QRegularExpression(u"[^\\d+x]"_qs)))
            label.clear(); // the grid's shape, not its name
        if (label.isEmpty() && named && !isForeign) {
            label = SectionOfKind(kind);
            if (label.isEmpty())
                label = QString(kind).replace(u'_', u' ');
        }
        Text().Separate();
        if (!label.isEmpty() && !isForeign)
            Text().AddHeading(label);
    }

    /// Directives that show something in the text.
    bool Shown(const ChordProDirective& directive)
    {
        if (directive.name == u"comment" || directive.name == u"comment_box") {
            const QString text = PlainText(directive.value, m_line, m_remarks);
            Text().AddHeading(text);
        } else if (directive.name == u"comment_italic") {
            Text().AddLyric(PlainText(directive.exact, m_line, m_remarks));
        } else if (directive.name == u"chorus") {
            Text().Separate();
            const QString label = directive.Label();
            Text().AddHeading(label.isEmpty() ? SectionOfKind(u"chorus"_qs) : label);
        } else if (directive.name == u"new_song") {
            FinishSong();
        } else {
            return false;
        }
        return true;
    }

    /// Directives that describe the song and have a field.
    bool Described(const ChordProDirective& directive)
    {
        const QString& name = directive.name;
        if (name == u"title")
            m_song.AddTitle(directive.value, m_line, m_remarks);
        else if (name == u"artist")
            m_song.AddArtist(directive.value);
        else if (name == u"composer" || name == u"lyricist" || name == u"author")
            m_song.AddAuthor(directive.value, m_line);
        else if (name == u"subtitle" || name == u"album")
            m_song.AddSource(directive.value, m_line);
        else if (name == u"key")
            m_song.SetKey(directive.value, m_line, m_remarks);
        else if (name == u"capo")
            m_song.SetCapo(directive.value);
        else if (name == u"tag")
            m_song.AddTheme(directive.value);
        else if (name == u"keywords")
            AddKeywords(directive.value);
        else
            return false;
        return true;
    }

    void AddKeywords(const QString& words)
    {
        static const QRegularExpression separator(QStringLiteral("[;,]"));
        for (const QString& word : words.split(separator))
            m_song.AddTheme(word);
    }

    /// Directives that only we write: what the format has no words for.
    bool Ours(const ChordProDirective& directive)
    {
        if (directive.name == u"x_linha")
            Text().AddExact(directive.exact);
        else if (directive.name == u"x_versao" && directive.value == u"2")
            m_song.BeginSecondVersion();
        else if (directive.name == u"x_tom")
            m_song.SetExactTom(directive.exact);
        else if (directive.name == u"x_variacao")
            m_song.SetExactVariacao(directive.exact);
        else if (directive.name == u"x_categoria")
            return SetCategory(directive.value);
        else
            return false;
        return true;
    }

    bool SetCategory(const QString& value)
    {
        bool isNumber = false;
        const short number = value.toShort(&isNumber);
        if (value == u"Religiosa")
            m_song.SetCategory(1);
        else if (value == u"Secular")
            m_song.SetCategory(2);
        else if (isNumber)
            m_song.SetCategory(number);
        else
            return false;
        return true;
    }

    void FinishSong()
    {
        m_environment = Environment::Song;
        if (!m_song.IsEmpty()) {
            const qsizetype number = m_reading.songs.size() + 1;
            const bool first = number == 1 || m_name.isEmpty();
            const QString name = first ? m_name : m_name + u' ' + QString::number(number);
            m_reading.songs.append(m_song.Finish(name, m_remarks));
        }
        m_song = {};
    }

    QString m_name;
    Reading m_reading;
    Remarks m_remarks;
    SongDraft m_song;
    Environment m_environment = Environment::Song;
    int m_line = 0;
};

} // namespace

Reading ReadChordPro(const QString& text, const QString& name)
{
    return ChordProSongs(name).Read(text);
}

bool LooksLikeChordPro(const QString& text)
{
    int bracketed = 0;
    for (const SourceLine& line : LinesOf(text)) {
        const auto directive = ReadDirective(line.text);
        if (directive && directive->IsKnown())
            return true;
        if (!line.text.contains(u'['))
            continue;
        int chords = 0;
        bool words = false;
        for (const MarkedPiece& piece : PiecesOf(line.text)) {
            words = words || !piece.lyric.trimmed().isEmpty();
            if (!piece.mark.isEmpty() && SpellChord(piece.mark, ChordSpelling::Loose))
                ++chords;
        }
        bracketed += chords > 0 && (words || chords > 1) ? 1 : 0;
    }
    return bracketed > 0;
}

} // namespace Songbook
