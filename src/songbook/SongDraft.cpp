#include "songbook/SongDraft.h"

#include "songbook/KeyName.h"

namespace Songbook {

namespace {

/// @return a field's text: one line without blanks around it
QString OneLine(const QString& text)
{
    QString line = text;
    line.replace(u"\r\n"_qs, u" "_qs)
        .replace(u'\r', u' ')
        .replace(u'\n', u' ')
        .replace(u'\t', u' ');
    return line.trimmed();
}

/// @return the last chord of a sheet; empty without one
QString LastChord(const QString& text)
{
    const QStringList rows = text.split(u"\r\n"_qs);
    for (qsizetype i = rows.size() - 1; i >= 0; --i) {
        if (!IsChordRow(rows[i]))
            continue;
        const QList<Word> words = WordsOf(rows[i]);
        for (qsizetype word = words.size() - 1; word >= 0; --word) {
            if (KeyOfChord(words[word].text))
                return words[word].text.toString();
        }
    }
    return {};
}

} // namespace

void SongDraft::Append(QList<Said>& list, const QString& text, int line)
{
    const QString said = OneLine(text);
    if (!said.isEmpty())
        list.append({said, line});
}

QString SongDraft::Joined(const QList<Said>& list)
{
    QStringList texts;
    QSet<QString> taken;
    for (const Said& said : list) {
        if (taken.contains(said.text))
            continue;
        taken.insert(said.text);
        texts.append(said.text);
    }
    return texts.join(u" / ");
}

void SongDraft::AddTitle(const QString& title, int line, Remarks& remarks)
{
    if (!m_titles.isEmpty() && m_titles.first().text != OneLine(title))
        remarks.Lost(line, u"outro título: \"%1\""_qs.arg(Excerpt(title)));
    Append(m_titles, title, line);
}

void SongDraft::SetKey(const QString& key, int line, Remarks& remarks)
{
    const QString written = OneLine(key);
    if (written.isEmpty())
        return;
    const auto name = SpellKey(written);
    if (!name) {
        remarks.Lost(line, u"o tom \"%1\" não foi reconhecido"_qs.arg(Excerpt(written)));
        return;
    }
    if (m_tom) {
        if (*m_tom != name->tom || m_variacao.value_or(QString()) != name->variacao)
            remarks.Lost(line, u"outro tom: \"%1\""_qs.arg(Excerpt(written)));
        return;
    }
    m_tom = name->tom;
    m_variacao = name->variacao;
    const QString stored = name->tom + name->variacao;
    if (!name->whole)
        remarks.Lost(line, u"do tom \"%1\" ficou \"%2\""_qs.arg(Excerpt(written), stored));
    else if (stored != written)
        remarks.Note(line, u"o tom \"%1\" foi escrito \"%2\""_qs.arg(Excerpt(written), stored));
}

void SongDraft::SetCapo(const QString& capo)
{
    const QString said = OneLine(capo);
    if (said != u"0")
        m_capo = said;
}

bool SongDraft::IsEmpty() const
{
    return m_titles.isEmpty() && m_artists.isEmpty() && m_authors.isEmpty() &&
           m_sources.isEmpty() && m_themes.isEmpty() && !m_tom && m_capo.isEmpty() &&
           m_text.IsEmpty() && m_secondText.IsEmpty();
}

QString SongDraft::Reference(Remarks& remarks) const
{
    const auto tellLost = [&remarks](const QList<Said>& list) {
        for (const Said& said : list)
            remarks.Lost(said.line, u"além da referência: \"%1\""_qs.arg(Excerpt(said.text)));
    };
    const QString chosen = Joined(!m_artists.isEmpty()   ? m_artists
                                  : !m_authors.isEmpty() ? m_authors
                                                         : m_sources);
    if (!m_artists.isEmpty())
        tellLost(m_authors);
    if (!m_artists.isEmpty() || !m_authors.isEmpty())
        tellLost(m_sources);
    return chosen.isEmpty() ? NoReference : chosen;
}

void SongDraft::FillKey(ExchangeSong& song, Remarks& remarks) const
{
    song.tom = m_tom.value_or(u"C"_qs);
    song.variacao = m_variacao.value_or(QString());
    if (m_tom)
        return;
    const QString chord = LastChord(*song.letra1);
    const auto key = KeyOfChord(chord);
    if (!key)
        return;
    song.tom = key->tom;
    song.variacao = key->variacao;
    remarks.Note(0, u"sem tom: ficou o do último acorde, \"%1\""_qs.arg(chord));
}

QString SongDraft::WithCapo(const QString& text) const
{
    if (m_capo.isEmpty())
        return text;
    const QString said = CapoHeading() + m_capo;
    QString heading = AsHeading(said);
    if (text.isEmpty())
        return heading;
    return heading + u"\r\n" + text;
}

ExchangeSong SongDraft::Finish(const QString& name, Remarks& remarks) const
{
    ExchangeSong song;
    const QString fallback = OneLine(name);
    song.titulo =
        !m_titles.isEmpty() ? m_titles.first().text : (fallback.isEmpty() ? NoTitle : fallback);
    if (m_titles.isEmpty())
        remarks.Note(0, u"sem título: ficou \"%1\""_qs.arg(*song.titulo));
    song.referencia = Reference(remarks);
    song.letra1 = WithCapo(m_text.Text());
    song.letra2 = m_second ? WithCapo(m_secondText.Text()) : *song.letra1;
    FillKey(song, remarks);
    song.categoria = m_category;
    for (const Said& theme : m_themes)
        song.temas.append(theme.text);
    return song;
}

} // namespace Songbook
