#include "songbook/PlainTextReader.h"

#include "chords/Notas.h"
#include "songbook/ChordTextReader.h"
#include "songbook/KeyName.h"
#include "songbook/PlainTextWriter.h"
#include "songbook/SongDraft.h"
#include "songbook/SourceText.h"

#include <optional>

namespace Songbook {

namespace {

/// A stretch of lines: the song from one separator to the next.
struct Stretch
{
    qsizetype begin = 0; ///< index of its first line, from 0
    qsizetype end = 0;   ///< index behind its last line
};

bool IsBlank(const SourceLine& line)
{
    return QStringView(line.text).trimmed().isEmpty();
}

/// @return what stands behind "Name: "
std::optional<QString> ValueOf(const SourceLine& line, QStringView name)
{
    if (!line.text.startsWith(name) || !QStringView(line.text).sliced(name.size()).startsWith(u':'))
        return std::nullopt;
    const QString value = line.text.mid(name.size() + 1);
    return value.startsWith(u' ') ? value.mid(1) : value;
}

/// @return the lines of each song; a separator counts only before a title, so that a line of signs
///         in somebody's text stays
QList<Stretch> Cut(const QList<SourceLine>& lines)
{
    QList<Stretch> songs = {{0, lines.size()}};
    for (qsizetype at = 0; at < lines.size(); ++at) {
        if (lines[at].text.trimmed() != SongsApart())
            continue;
        qsizetype next = at + 1;
        while (next < lines.size() && IsBlank(lines[next]))
            ++next;
        if (next == lines.size() || !ValueOf(lines[next], u"T\u00EDtulo"))
            continue;
        const bool blankBefore = at > songs.last().begin && IsBlank(lines[at - 1]);
        songs.last().end = blankBefore ? at - 1 : at;
        songs.append({next, lines.size()});
    }
    return songs;
}

/// @return the key's columns when it begins with a note as ours are called; the rest is variation
std::optional<KeyName> ExactKey(const QString& key)
{
    QString table;
    for (const qsizetype length : {qsizetype{2}, qsizetype{1}}) {
        const QString note = key.left(length);
        const QString rest = key.mid(length);
        const bool isWord = !rest.isEmpty() && rest.front().isLetter() && !KeyOfChord(key);
        if (note.size() == length && Funcoes::Procura_Nota(note, table) != 0 && !isWord)
            return KeyName{note, rest, true};
    }
    return std::nullopt;
}

class WrittenSongs
{
public:
    WrittenSongs(const QList<SourceLine>& lines, const QString& name)
        : m_lines(lines)
        , m_name(name)
    {
    }

    Reading Read()
    {
        for (const Stretch& stretch : Cut(m_lines)) {
            if (!ReadWritten(stretch))
                ReadChanged(stretch);
        }
        if (m_reading.songs.isEmpty())
            return Failed(u"n\u00E3o h\u00E1 m\u00FAsica no arquivo"_qs);
        m_reading.remarks = m_remarks.All();
        return m_reading;
    }

    /// @return true when the song has a head as we write it
    bool ReadWritten(const Stretch& stretch)
    {
        m_at = stretch.begin;
        m_end = stretch.end;
        const auto title = Take(u"T\u00EDtulo");
        const auto reference = Take(u"Refer\u00EAncia");
        const int keyLine = m_at < m_end ? m_lines[m_at].number : 0;
        const auto key = Take(u"Tom");
        const auto category = Take(u"Categoria");
        const auto themes = Take(u"Temas");
        const bool ends = m_at < m_end && m_lines[m_at].text.isEmpty();
        if (!title || !ends || (category != u"Religiosa" && category != u"Secular"))
            return false;
        ++m_at;
        ExchangeSong song;
        song.titulo = *title;
        song.referencia = reference.value_or(QString());
        song.categoria = category == u"Secular" ? 2 : 1;
        if (themes && !themes->isEmpty())
            song.temas = themes->split(u"; "_qs);
        song.letra1 = song.letra2 = Text();
        SetKey(song, key.value_or(QString()), keyLine);
        m_reading.songs.append(song);
        return true;
    }

private:
    std::optional<QString> Take(QStringView name)
    {
        auto value = m_at < m_end ? ValueOf(m_lines[m_at], name) : std::nullopt;
        m_at += value ? 1 : 0;
        return value;
    }

    QString Text() const
    {
        QStringList rows;
        for (qsizetype i = m_at; i < m_end; ++i)
            rows.append(m_lines[i].text);
        return rows.join(u"\r\n"_qs);
    }

    void SetKey(ExchangeSong& song, const QString& key, int line)
    {
        if (const auto exact = ExactKey(key)) {
            song.tom = exact->tom;
            song.variacao = exact->variacao;
            return;
        }
        SongDraft draft;
        draft.SetKey(key, line, m_remarks);
        Remarks unsaid; // of the title that the draft does not have
        const ExchangeSong read = draft.Finish(u"?"_qs, unsaid);
        song.tom = key.isEmpty() ? QString() : read.tom;
        song.variacao = read.variacao;
    }

    void ReadChanged(const Stretch& stretch)
    {
        QString text;
        for (qsizetype i = stretch.begin; i < stretch.end; ++i)
            text += m_lines[i].text + u'\n';
        const Reading reading = ReadChordText(text, m_name);
        m_reading.songs += reading.songs;
        const int above = stretch.begin < stretch.end ? m_lines[stretch.begin].number - 1 : 0;
        for (const Remark& remark : reading.remarks) {
            const int line = remark.line > 0 ? remark.line + above : 0;
            if (remark.kind == Remark::Kind::Lost)
                m_remarks.Lost(line, remark.what);
            else
                m_remarks.Note(line, remark.what);
        }
    }

    const QList<SourceLine>& m_lines;
    const QString& m_name;
    qsizetype m_at = 0;
    qsizetype m_end = 0;
    Reading m_reading;
    Remarks m_remarks;
};

/// @return the lines, the first without the mark that some editors put before a text
QList<SourceLine> LinesWithoutMark(const QString& text)
{
    QList<SourceLine> lines = LinesOf(text);
    if (!lines.isEmpty() && lines.first().text.startsWith(u'\uFEFF'))
        lines.first().text.remove(0, 1);
    return lines;
}

} // namespace

bool LooksLikePlainText(const QString& text)
{
    const qsizetype apart = text.indexOf(SongsApart());
    if (apart < 0 && !text.first(qMin(text.size(), qsizetype{8})).contains(u"T\u00EDtulo"))
        return false;
    const QList<SourceLine> lines = LinesWithoutMark(text);
    const QList<Stretch> songs = Cut(lines);
    return songs.size() > 1 || WrittenSongs(lines, {}).ReadWritten(songs.first());
}

Reading ReadPlainText(const QString& text, const QString& name)
{
    const QList<SourceLine> lines = LinesWithoutMark(text);
    return WrittenSongs(lines, name).Read();
}

} // namespace Songbook
