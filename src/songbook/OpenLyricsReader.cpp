#include "songbook/OpenLyricsReader.h"

#include "songbook/SectionName.h"
#include "songbook/SongDraft.h"

#include <QHash>

namespace Songbook {

namespace {

/// @return how we write what the format calls a chord's structure
QString Structure(const QString& code)
{
    static const QHash<QString, QString> suffixes = {
        {u"major"_qs, u""_qs},        {u"power"_qs, u"5"_qs},
        {u"min"_qs, u"m"_qs},         {u"aug"_qs, u"+"_qs},
        {u"dim"_qs, u"\u00BA"_qs},    {u"dom7"_qs, u"7"_qs},
        {u"maj7"_qs, u"7+"_qs},       {u"min7"_qs, u"m7"_qs},
        {u"dim7"_qs, u"\u00BA7"_qs},  {u"halfdim7"_qs, u"m7(b5)"_qs},
        {u"minmaj7"_qs, u"m7+"_qs},   {u"augmaj7"_qs, u"7+(#5)"_qs},
        {u"aug7"_qs, u"7(#5)"_qs},    {u"maj6"_qs, u"6"_qs},
        {u"maj6b"_qs, u"(b6)"_qs},    {u"min6"_qs, u"m6"_qs},
        {u"min6b"_qs, u"m(b6)"_qs},   {u"dom9"_qs, u"7(9)"_qs},
        {u"dom9b"_qs, u"7(b9)"_qs},   {u"maj9"_qs, u"7+(9)"_qs},
        {u"min9"_qs, u"m7(9)"_qs},    {u"minmaj9"_qs, u"m7+(9)"_qs},
        {u"aug9"_qs, u"7(9)(#5)"_qs}, {u"halfdim9"_qs, u"m7(9)(b5)"_qs},
        {u"sus4"_qs, u"sus4"_qs},     {u"sus2"_qs, u"sus2"_qs},
        {u"add9"_qs, u"(9)"_qs}};
    if (code.isEmpty())
        return {};
    const auto found = suffixes.constFind(code);
    return found != suffixes.cend() ? *found : u'(' + code + u')';
}

/// The chord of an element: a name as it is written, or root, structure and bass.
QString ChordOf(const XmlNode& chord)
{
    QString name = chord.attributes.value(u"name"_qs);
    if (!name.isEmpty())
        return name;
    const QString root = chord.attributes.value(u"root"_qs);
    const QString bass = chord.attributes.value(u"bass"_qs);
    QString text = root + Structure(chord.attributes.value(u"structure"_qs));
    if (!bass.isEmpty())
        text += u'/' + bass;
    return text.replace(u"Fx"_qs, u"F##"_qs)
        .replace(u"Cx"_qs, u"C##"_qs)
        .replace(u"Gx"_qs, u"G##"_qs);
}

/// The lines of one element, put together from words, chords and breaks. White space counts as one
/// blank, at the start of a line as none.
class MixedLines
{
public:
    void AddText(const QString& text)
    {
        for (const QChar sign : text) {
            if (sign.isSpace() && sign != u'\u00A0')
                m_blank = m_started && !m_afterBlank;
            else
                AddSign(sign);
        }
    }

    void AddMark(const QString& mark, bool exact)
    {
        // The blank before a chord is sung before it.
        FlushBlank();
        m_line.append({mark, {}, exact});
    }

    void Break()
    {
        m_lines.append(m_line);
        m_line.clear();
        m_started = false;
        m_blank = false;
        m_afterBlank = false;
    }

    /// @return the lines; the last one only when there is something in it
    QList<QList<MarkedPiece>> Take()
    {
        if (!m_line.isEmpty())
            Break();
        return m_lines;
    }

private:
    void AddSign(QChar sign)
    {
        FlushBlank();
        m_started = true;
        m_afterBlank = false;
        Lyric() += sign;
    }

    void FlushBlank()
    {
        if (!m_blank)
            return;
        Lyric() += u' ';
        m_blank = false;
        m_afterBlank = true;
    }

    QString& Lyric()
    {
        if (m_line.isEmpty())
            m_line.append(MarkedPiece());
        return m_line.last().lyric;
    }

    QList<QList<MarkedPiece>> m_lines;
    QList<MarkedPiece> m_line;
    bool m_started = false; ///< the line has words
    bool m_blank = false;   ///< white space came that no word has followed yet
    bool m_afterBlank = false;
};

class OpenLyricsSong
{
public:
    Reading Read(const XmlNode& song, const QString& name)
    {
        m_language = song.attributes.value(u"lang"_qs);
        for (const XmlNode& child : song.children) {
            if (child.name == u"properties")
                ReadProperties(child);
            else if (child.name == u"lyrics")
                ReadLyrics(child);
            else if (child.name == u"format")
                m_remarks.Note(child.line, u"a formatação não foi mantida"_qs);
            else if (!child.IsText())
                Leave(child);
        }
        Reading reading;
        reading.songs.append(m_song.Finish(name, m_remarks));
        reading.remarks = m_remarks.All();
        return reading;
    }

private:
    void Leave(const XmlNode& node)
    {
        QString text = node.FullText().trimmed();
        if (text.isEmpty())
            text = QStringList(node.attributes.values()).join(u' ');
        if (!text.isEmpty())
            m_remarks.Lost(node.line,
                           u"sem lugar: %1: \"%2\""_qs.arg(Excerpt(node.name), Excerpt(text)));
    }

    void ReadProperties(const XmlNode& properties)
    {
        for (const XmlNode& property : properties.children) {
            if (property.IsText())
                continue;
            const QString text = property.FullText().trimmed();
            if (property.name == u"titles")
                ReadTitles(property);
            else if (property.name == u"authors")
                ReadAuthors(property);
            else if (property.name == u"themes")
                ReadThemes(property);
            else if (property.name == u"key")
                m_song.SetKey(text, property.line, m_remarks);
            else if (property.name == u"capo")
                m_song.SetCapo(text);
            else if (property.name == u"songbooks" || property.name == u"comments")
                LeaveEach(property);
            else
                Leave(property);
        }
    }

    void LeaveEach(const XmlNode& list)
    {
        for (const XmlNode& item : list.children) {
            if (!item.IsText())
                Leave(item);
        }
    }

    void ReadTitles(const XmlNode& titles)
    {
        for (const XmlNode& title : titles.children) {
            if (title.name == u"title")
                m_song.AddTitle(title.FullText().simplified(), title.line, m_remarks);
        }
    }

    void ReadAuthors(const XmlNode& authors)
    {
        for (const XmlNode& author : authors.children) {
            const QString type = author.attributes.value(u"type"_qs);
            if (author.name != u"author")
                continue;
            if (type == u"translation" || type == u"arrangement")
                Leave(author);
            else
                m_song.AddArtist(author.FullText().simplified());
        }
    }

    /// Where themes come in Portuguese too, those are the ones.
    void ReadThemes(const XmlNode& themes)
    {
        bool portuguese = false;
        for (const XmlNode& theme : themes.children)
            portuguese = portuguese || theme.attributes.value(u"lang"_qs).startsWith(u"pt");
        for (const XmlNode& theme : themes.children) {
            const QString language = theme.attributes.value(u"lang"_qs);
            if (theme.name != u"theme")
                continue;
            if (portuguese && !language.isEmpty() && !language.startsWith(u"pt"))
                Leave(theme);
            else
                m_song.AddTheme(theme.FullText().simplified());
        }
    }

    void ReadLyrics(const XmlNode& lyrics)
    {
        for (const XmlNode& verse : lyrics.children) {
            if (verse.name == u"verse" || verse.name == u"instrument")
                ReadVerse(verse);
            else if (!verse.IsText())
                Leave(verse);
        }
    }

    void ReadVerse(const XmlNode& verse)
    {
        m_song.Text().Separate();
        QString heading = SectionName(verse.attributes.value(u"name"_qs));
        const QString language = verse.attributes.value(u"lang"_qs);
        const QString script = verse.attributes.value(u"translit"_qs);
        if (m_language.isEmpty())
            m_language = language;
        if (!script.isEmpty())
            heading += u" ("_qs + language + u", " + script + u')';
        else if (!language.isEmpty() && language != m_language)
            heading += u" ("_qs + language + u')';
        if (!heading.isEmpty())
            m_song.Text().AddHeading(heading);
        for (const XmlNode& lines : verse.children) {
            if (lines.name == u"lines")
                ReadLines(lines);
            else if (!lines.IsText())
                Leave(lines);
        }
    }

    void ReadLines(const XmlNode& node)
    {
        const QString part = node.attributes.value(u"part"_qs).simplified();
        const QString repeat = node.attributes.value(u"repeat"_qs).simplified();
        MixedLines mixed;
        Mix(node, mixed);
        QList<QList<MarkedPiece>> lines = mixed.Take();
        if (!repeat.isEmpty() && !lines.isEmpty()) {
            if (lines.last().isEmpty())
                lines.last().append(MarkedPiece());
            lines.last().last().lyric += u" ("_qs + repeat + u"x)";
        }
        if (!part.isEmpty())
            m_song.Text().AddLyric(u'(' + part + u')');
        for (const QList<MarkedPiece>& line : lines)
            m_song.Text().AddPieces(line, node.line, m_remarks);
    }

    void Mix(const XmlNode& node, MixedLines& mixed)
    {
        for (const XmlNode& child : node.children) {
            if (child.IsText()) {
                mixed.AddText(child.text);
            } else if (child.name == u"br") {
                mixed.Break();
            } else if (child.name == u"comment") {
                mixed.AddMark(child.FullText().simplified(), true);
            } else if (child.name == u"chord") {
                mixed.AddMark(ChordOf(child), false);
                Mix(child, mixed);
            } else {
                if (child.name != u"beat" && child.name != u"line")
                    m_remarks.Note(child.line, u"a formatação não foi mantida"_qs);
                Mix(child, mixed);
                if (child.name == u"line")
                    mixed.Break();
            }
        }
    }

    SongDraft m_song;
    Remarks m_remarks;
    QString m_language; ///< of the song; else of its first verse
};

} // namespace

Reading ReadOpenLyrics(const XmlNode& song, const QString& name)
{
    return OpenLyricsSong().Read(song, name);
}

} // namespace Songbook
