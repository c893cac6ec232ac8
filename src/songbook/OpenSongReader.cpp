#include "songbook/OpenSongReader.h"

#include "songbook/SectionName.h"
#include "songbook/SongDraft.h"
#include "songbook/SourceText.h"

#include <QMap>

namespace Songbook {

namespace {

constexpr char16_t NoVerse = u' ';

/// A row of chords and what is sung to it.
struct OpenSongLine
{
    QString chords;
    QMap<QChar, QString> lyrics; ///< by the verse's digit; NoVerse for what is sung in all
    int line = 0;                ///< of the source
};

/// A part of the song.
struct OpenSongPart
{
    QString code;
    QList<OpenSongLine> lines;
};

/// An underscore only stretches a word to its chords.
QString WithoutFill(QString lyric)
{
    for (qsizetype at = lyric.indexOf(u'_'); at >= 0; at = lyric.indexOf(u'_', at)) {
        qsizetype end = at;
        while (end < lyric.size() && lyric[end] == u'_')
            ++end;
        const bool inside =
            at > 0 && end < lyric.size() && lyric[at - 1].isLetter() && lyric[end].isLetter();
        for (; at < end; ++at)
            lyric[at] = inside ? u'-' : u' ';
    }
    return lyric;
}

class OpenSongSong
{
public:
    Reading Read(const XmlNode& song, const QString& name)
    {
        for (const XmlNode& field : song.children) {
            if (!field.IsText() && field.name != u"lyrics")
                ReadField(field);
        }
        if (const XmlNode* lyrics = song.Child(u"lyrics"))
            ReadLyrics(lyrics->FullText(), lyrics->line);
        Reading reading;
        reading.songs.append(m_song.Finish(name, m_remarks));
        reading.remarks = m_remarks.All();
        return reading;
    }

private:
    void ReadField(const XmlNode& field)
    {
        const QString text = field.FullText().trimmed();
        static const QStringList layout = {u"style"_qs, u"backgrounds"_qs};
        if (layout.contains(field.name)) {
            m_remarks.Note(field.line, u"o estilo da apresentação não foi mantido"_qs);
            return;
        }
        if (text.isEmpty())
            return;
        if (field.name == u"title")
            m_song.AddTitle(text, field.line, m_remarks);
        else if (field.name == u"author")
            m_song.AddArtist(text);
        else if (field.name == u"key")
            m_song.SetKey(text, field.line, m_remarks);
        else if (field.name == u"capo")
            m_song.SetCapo(text);
        else if (field.name == u"theme" || field.name == u"alttheme")
            AddThemes(text);
        else
            m_remarks.Lost(field.line,
                           u"sem lugar: %1: \"%2\""_qs.arg(Excerpt(field.name), Excerpt(text)));
    }

    void AddThemes(const QString& text)
    {
        QString even = text;
        for (const QString& theme : even.replace(u'\n', u';').split(u';'))
            m_song.AddTheme(theme);
    }

    void ReadLyrics(const QString& text, int firstLine)
    {
        OpenSongPart part;
        for (const SourceLine& line : LinesOf(text)) {
            const int number = firstLine + line.number - 1;
            const QString row = WithoutTabs(line.text);
            if (row.startsWith(u'[') && row.contains(u']')) {
                Write(part);
                part = {row.sliced(1, row.indexOf(u']') - 1).trimmed(), {}};
                KeepRest(row.sliced(row.indexOf(u']') + 1), number, part);
            } else {
                ReadRow(row, number, part);
            }
        }
        Write(part);
    }

    /// Some put the first line right behind the part's name.
    void KeepRest(const QString& rest, int number, OpenSongPart& part)
    {
        if (!rest.trimmed().isEmpty())
            part.lines.append({{}, {{NoVerse, rest.trimmed()}}, number});
    }

    void ReadRow(const QString& row, int number, OpenSongPart& part)
    {
        const QChar sign = row.isEmpty() ? QChar(NoVerse) : row.front();
        if (sign == u'.') {
            part.lines.append({row.mid(1), {}, number});
        } else if (sign == u';') {
            m_remarks.Note(number, u"o comentário \"%1\" ficou de fora"_qs.arg(Excerpt(row)));
        } else if (row.startsWith(u"---") || row.startsWith(u"-!!")) {
            m_remarks.Note(number, u"as quebras de página não foram mantidas"_qs);
        } else if (sign >= u'0' && sign <= u'9') {
            AddLyric(sign, row.mid(1), number, part);
        } else {
            AddLyric(NoVerse, sign == NoVerse ? row.mid(1) : row, number, part);
        }
    }

    void AddLyric(QChar verse, QString lyric, int number, OpenSongPart& part)
    {
        if (lyric.contains(u'|')) {
            m_remarks.Note(number, u"as quebras de slide (|) não foram mantidas"_qs);
            lyric.replace(u'|', u' ');
        }
        if (lyric.contains(u'_'))
            lyric = WithoutFill(lyric);
        const bool blank = lyric.trimmed().isEmpty();
        const bool joins =
            !part.lines.isEmpty() && !blank && !part.lines.last().lyrics.contains(verse) &&
            (verse == NoVerse
                 ? part.lines.last().lyrics.isEmpty() && !part.lines.last().chords.isEmpty()
                 : !part.lines.last().lyrics.contains(NoVerse));
        if (!joins)
            part.lines.append({{}, {}, number});
        part.lines.last().lyrics.insert(verse, blank ? QString() : lyric);
    }

    void Write(const OpenSongPart& part)
    {
        QMap<QChar, bool> verses;
        for (const OpenSongLine& line : part.lines) {
            for (auto it = line.lyrics.cbegin(); it != line.lyrics.cend(); ++it)
                verses.insert(it.key(), true);
        }
        verses.remove(NoVerse);
        if (part.code.isEmpty() && part.lines.isEmpty())
            return;
        if (verses.isEmpty()) {
            WriteVerse(part, NoVerse, part.code);
            return;
        }
        for (auto it = verses.cbegin(); it != verses.cend(); ++it)
            WriteVerse(part, it.key(), NumberedCode(part.code, it.key()));
    }

    static QString NumberedCode(const QString& code, QChar verse)
    {
        if (code.isEmpty())
            return u"V"_qs + verse;
        const QString mark = code.back().isDigit() ? code + u'.' : code;
        return mark + verse;
    }

    void WriteVerse(const OpenSongPart& part, QChar verse, const QString& code)
    {
        SheetText& text = m_song.Text();
        text.Separate();
        if (!code.isEmpty())
            text.AddHeading(SectionName(code));
        for (const OpenSongLine& line : part.lines) {
            const bool here = line.lyrics.contains(verse) || line.lyrics.contains(NoVerse);
            if (!here && !line.lyrics.isEmpty())
                continue;
            const QString lyric = line.lyrics.value(verse, line.lyrics.value(NoVerse));
            text.AddPieces(CutAtMarks(line.chords, lyric), line.line, m_remarks);
        }
    }

    SongDraft m_song;
    Remarks m_remarks;
};

} // namespace

Reading ReadOpenSong(const XmlNode& song, const QString& name)
{
    return OpenSongSong().Read(song, name);
}

} // namespace Songbook
