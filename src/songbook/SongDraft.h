#pragma once

#include "songbook/Reading.h"
#include "songbook/SheetText.h"

namespace Songbook {

/// One song while it is being read. What a source says of itself is collected here and finds its
/// field when the song is finished; what finds none is told.
class SongDraft
{
public:
    /// The first title counts.
    void AddTitle(const QString& title, int line, Remarks& remarks);

    /// Who is known for the song; all of them make the reference.
    void AddArtist(const QString& artist) { Append(m_artists, artist); }

    bool HasTitle() const { return !m_titles.isEmpty(); }
    bool HasArtist() const { return !m_artists.isEmpty(); }

    /// Who wrote it: the reference of a song without an artist.
    void AddAuthor(const QString& author, int line) { Append(m_authors, author, line); }

    /// A second title or the source: the reference of a song without artist and author.
    void AddSource(const QString& source, int line) { Append(m_sources, source, line); }

    void AddTheme(const QString& theme) { Append(m_themes, theme); }

    /// Becomes the columns TOM and VARIACAO. The first key counts.
    void SetKey(const QString& key, int line, Remarks& remarks);

    /// Keys that are written as they shall be stored.
    void SetExactTom(const QString& tom) { m_tom = tom; }
    void SetExactVariacao(const QString& variacao) { m_variacao = variacao; }

    /// Becomes the first heading of the text, where the musician sees it before playing.
    void SetCapo(const QString& capo);

    void SetCategory(int category) { m_category = category; }

    SheetText& Text() { return m_second ? m_secondText : m_text; }

    /// From here on the text belongs to the second version.
    void BeginSecondVersion() { m_second = true; }

    /// @return true when nothing was said and no line read
    bool IsEmpty() const;

    /// @param name  what the song is called when it has no title
    /// @return every field has a value. A song with one version has it in both; one without a key
    ///         has that of its last chord, since songs end at home
    ExchangeSong Finish(const QString& name, Remarks& remarks) const;

private:
    struct Said
    {
        QString text;
        int line = 0;
    };

    static void Append(QList<Said>& list, const QString& text, int line = 0);
    static QString Joined(const QList<Said>& list);
    QString Reference(Remarks& remarks) const;
    void FillKey(ExchangeSong& song, Remarks& remarks) const;
    QString WithCapo(const QString& text) const;

    QList<Said> m_titles;
    QList<Said> m_artists;
    QList<Said> m_authors;
    QList<Said> m_sources;
    QList<Said> m_themes;
    std::optional<QString> m_tom;
    std::optional<QString> m_variacao;
    QString m_capo;
    int m_category = 1;
    bool m_second = false;
    SheetText m_text;
    SheetText m_secondText;
};

/// How the text's first heading tells of a capo: what stands before its number.
inline const QString& CapoHeading()
{
    static const QString heading = u"Capotraste: "_qs;
    return heading;
}

/// What a song without a title, without a reference is called.
inline const QString NoTitle = u"Sem T\u00EDtulo"_qs;
inline const QString NoReference = u"Sem Refer\u00EAncia"_qs;

} // namespace Songbook
