#include "tools/SeedFiles.h"

#include "runtime/RuntimeError.h"

#include <QFile>
#include <QStringDecoder>

namespace Seed {

namespace {

const QString Optional = u"VARIACAO"_qs; ///< the one field that may be empty

const QStringList& FieldNames()
{
    static const QStringList names = {u"TITULO"_qs, u"REFERENCIA"_qs, u"TOM"_qs,
                                      Optional,     u"CATEGORIA"_qs,  u"TEMAS"_qs};
    return names;
}

/// Walks through one song file; the line number is always the one being read.
class SongReader
{
public:
    explicit SongReader(const QString& file)
        : m_file(file)
        , m_lines(ReadLines(file))
    {
    }

    Song Read()
    {
        ReadFields();
        FillFields();
        m_song.text = ReadText(u"MUSICA"_qs);
        if (m_song.text.isEmpty())
            FailAt(m_file, m_textLine, u"a seção \"== MUSICA\" está vazia"_qs);
        if (m_at < m_lines.size())
            m_song.secondText = ReadText(u"MUSICA2"_qs);
        return m_song;
    }

private:
    static bool IsSection(const QString& line) { return line.startsWith(u"=="); }

    int Line() const { return static_cast<int>(m_at) + 1; }

    void ReadFields()
    {
        for (; m_at < m_lines.size() && !IsSection(m_lines[m_at]); ++m_at) {
            const QString& line = m_lines[m_at];
            if (line.startsWith(u'#') || line.trimmed().isEmpty())
                continue;
            const qsizetype colon = line.indexOf(u':');
            const QString name = line.left(colon);
            if (colon < 0 || !FieldNames().contains(name))
                FailAt(m_file, Line(),
                       u"esperava um campo (%1), encontrei \"%2\""_qs.arg(FieldNames().join(u", "),
                                                                          line));
            if (m_song.lines.contains(name))
                FailAt(m_file, Line(),
                       u"o campo %1 já foi dado na linha %2"_qs.arg(name).arg(
                           m_song.lines.value(name)));
            m_song.lines.insert(name, Line());
            m_values.insert(name, line.mid(colon + 1).trimmed());
            if (m_values.value(name).isEmpty() && name != Optional)
                FailAt(m_file, Line(), u"o campo %1 está vazio"_qs.arg(name));
        }
        for (const QString& name : FieldNames()) {
            if (!m_song.lines.contains(name))
                FailAt(m_file, 0, u"falta o campo %1"_qs.arg(name));
        }
    }

    void FillFields()
    {
        m_song.title = m_values.value(u"TITULO"_qs);
        m_song.reference = m_values.value(u"REFERENCIA"_qs);
        m_song.key = m_values.value(u"TOM"_qs);
        m_song.variation = m_values.value(Optional);
        const QString category = m_values.value(u"CATEGORIA"_qs);
        m_song.category = category == u"Religiosa" ? 1 : category == u"Secular" ? 2 : 0;
        if (m_song.category == 0)
            FailAt(m_file, m_song.lines.value(u"CATEGORIA"_qs),
                   u"a categoria é \"Religiosa\" ou \"Secular\", não \"%1\""_qs.arg(category));
        for (const QString& part : m_values.value(u"TEMAS"_qs).split(u',')) {
            const QString theme = part.trimmed();
            if (theme.isEmpty() || m_song.themes.contains(theme))
                FailAt(m_file, m_song.lines.value(u"TEMAS"_qs),
                       u"tema vazio ou repetido: \"%1\""_qs.arg(theme));
            m_song.themes.append(theme);
        }
    }

    /// A section's text; the place moves on to the next section or to the end.
    QString ReadText(const QString& section)
    {
        const QString mark = u"== "_qs + section;
        m_textLine = Line();
        if (m_at >= m_lines.size() || m_lines[m_at] != mark)
            FailAt(m_file, m_at < m_lines.size() ? Line() : 0,
                   u"esperava a seção \"%1\""_qs.arg(mark));
        QStringList text;
        for (++m_at; m_at < m_lines.size() && !IsSection(m_lines[m_at]); ++m_at) {
            RefuseLostSigns(m_lines[m_at]);
            text.append(m_lines[m_at]);
        }
        while (!text.isEmpty() && text.first().isEmpty())
            text.removeFirst();
        while (!text.isEmpty() && text.last().isEmpty())
            text.removeLast();
        return text.join(u"\r\n");
    }

    /// What the chord sheet would drop, break at or push off its column does not get in.
    void RefuseLostSigns(const QString& line) const
    {
        for (const QChar sign : line) {
            if (sign == u'%' || sign == u'£' || sign < u' ')
                FailAt(m_file, Line(),
                       u"o sinal U+%1 não pode estar no texto de uma música"_qs.arg(
                           int{sign.unicode()}, 4, 16, QChar(u'0')));
        }
        if (line.endsWith(u' '))
            FailAt(m_file, Line(), u"brancos no fim da linha"_qs);
    }

    QString m_file;
    QStringList m_lines;
    qsizetype m_at = 0; ///< index of the line being read, from 0
    int m_textLine = 0; ///< line of the current section's mark
    QHash<QString, QString> m_values;
    Song m_song;
};

} // namespace

void FailAt(const QString& file, int line, const QString& what)
{
    const QString place = line > 0 ? u"%1:%2"_qs.arg(file).arg(line) : file;
    throw RuntimeError(RuntimeError::FileFailure, place + u": " + what, {});
}

QStringList ReadLines(const QString& file)
{
    QFile input(file);
    if (!input.open(QIODevice::ReadOnly))
        FailAt(file, 0, u"não foi possível ler: %1"_qs.arg(input.errorString()));
    QStringList lines;
    QList<QByteArray> raw = input.readAll().split('\n');
    if (raw.last().isEmpty())
        raw.removeLast();
    for (QByteArray& bytes : raw) {
        if (bytes.endsWith('\r'))
            bytes.chop(1);
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QString line = decoder(bytes);
        if (decoder.hasError())
            FailAt(file, static_cast<int>(lines.size()) + 1, u"a linha não é UTF-8"_qs);
        lines.append(line);
    }
    return lines;
}

QList<Theme> ReadThemes(const QString& file)
{
    QList<Theme> themes;
    QHash<QString, int> seen;
    const QStringList lines = ReadLines(file);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString line = lines[i].trimmed();
        const int number = static_cast<int>(i) + 1;
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        bool ok = false;
        const Theme theme{line.section(u' ', 1).trimmed(), line.section(u' ', 0, 0).toShort(&ok),
                          number};
        if (!ok || theme.order < 0 || theme.description.isEmpty())
            FailAt(file, number,
                   u"esperava um número, um branco e um nome, encontrei \"%1\""_qs.arg(line));
        // The catalogue looks themes up without regard to letter case.
        const QString folded = theme.description.toCaseFolded();
        if (seen.contains(folded))
            FailAt(file, number,
                   u"o tema \"%1\" já foi dado na linha %2"_qs.arg(theme.description)
                       .arg(seen.value(folded)));
        seen.insert(folded, number);
        themes.append(theme);
    }
    if (themes.isEmpty())
        FailAt(file, 0, u"não há nenhum tema"_qs);
    return themes;
}

Song ReadSong(const QString& file)
{
    return SongReader(file).Read();
}

} // namespace Seed
