#include "CatalogueWatch.h"

#include <algorithm>

namespace {

QString Changed(const char* what, qint64 id)
{
    return QString::fromLatin1(what) + u' ' + QString::number(id) + u" changed unasked"_qs;
}

} // namespace

QString StoredSong::DifferenceFrom(const StoredSong& other) const
{
    const QList<std::pair<QString, QString>> fields{
        {title, other.title},       {reference, other.reference},
        {text, other.text},         {text2, other.text2},
        {key, other.key},           {variation, other.variation},
        {category, other.category}, {themes.join(u','), other.themes.join(u',')}};
    for (const auto& [here, there] : fields) {
        if (here == there)
            continue;
        const auto [first, second] =
            std::mismatch(here.begin(), here.end(), there.begin(), there.end());
        constexpr qsizetype Shown = 60;
        const auto from = std::distance(here.begin(), first);
        return u"from letter %1 on <%2> instead of <%3>"_qs.arg(from).arg(there.mid(from, Shown),
                                                                          here.mid(from, Shown));
    }
    return {};
}

CatalogueWatch::CatalogueWatch(const QString& path)
    : m_file(path)
{
    m_rows = Read();
}

StoredRows CatalogueWatch::Read()
{
    StoredRows rows;
    m_version = m_file.Rows(u"PRAGMA data_version"_qs).constFirst().constFirst();
    const auto songs = m_file.Rows(u"SELECT ID, TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO,"
                                   " CATEGORIA FROM MUSICA"_qs);
    for (const QStringList& row : songs)
        rows.songs[row[0].toLongLong()] = {row[1], row[2], row[3], row[4],
                                           row[5], row[6], row[7], {}};
    const auto links = m_file.Rows(u"SELECT ID_MUSICA, ID_TEMA FROM TEMA_MUSICA JOIN MUSICA ON"
                                   " ID_MUSICA = MUSICA.ID ORDER BY ID_TEMA"_qs);
    for (const QStringList& row : links)
        rows.songs[row[0].toLongLong()].themes += row[1];
    const auto themes = m_file.Rows(u"SELECT ID, DESCRICAO FROM TEMA"_qs);
    for (const QStringList& row : themes)
        rows.themes[row[0].toLongLong()] = row[1];
    const auto setlists = m_file.Rows(u"SELECT ID, NOME, DATA FROM LISTA"_qs);
    for (const QStringList& row : setlists)
        rows.setlists[row[0].toLongLong()] = {row[1], row[2]};
    const auto places =
        m_file.Rows(u"SELECT ID_LISTA, ID_MUSICA FROM LISTA_MUSICA ORDER BY ID_LISTA, ORDEM"_qs);
    for (const QStringList& row : places)
        rows.setlists[row[0].toLongLong()] += row[1];
    return rows;
}

QString CatalogueWatch::Look(const Permitted& permitted)
{
    if (m_file.Rows(u"PRAGMA data_version"_qs).constFirst().constFirst() == m_version)
        return {};
    StoredRows now = Read();
    QString difference = Difference(m_rows, now, permitted);
    m_rows = std::move(now);
    return difference;
}

QString CatalogueWatch::Difference(const StoredRows& before, const StoredRows& after,
                                   const Permitted& permitted)
{
    for (auto song = before.songs.begin(); song != before.songs.end(); ++song) {
        const auto now = after.songs.constFind(song.key());
        if ((now == after.songs.constEnd() || *now != *song) &&
            !permitted.songs.contains(song.key()))
            return Changed("song", song.key());
    }
    for (auto song = after.songs.begin(); song != after.songs.end(); ++song) {
        if (!before.songs.contains(song.key()) && !permitted.newSongs)
            return Changed("new song", song.key());
    }
    if (before.themes != after.themes && !permitted.themes)
        return u"the themes changed unasked"_qs;
    if (before.setlists != after.setlists && !permitted.setlists)
        return u"the setlists changed unasked"_qs;
    return {};
}

QString CatalogueWatch::Unsound()
{
    QString answer = m_file.Rows(u"PRAGMA integrity_check"_qs).constFirst().constFirst();
    if (answer != u"ok")
        return answer;
    // What a query finds must not be there. Places of setlists may name songs that are gone: those
    // are dropped when the setlist is saved again.
    static const QStringList wrong{
        u"SELECT 'link of no song', ID_MUSICA FROM TEMA_MUSICA WHERE ID_MUSICA NOT IN (SELECT ID "
        "FROM MUSICA)"_qs,
        u"SELECT 'link to no theme', ID_MUSICA FROM TEMA_MUSICA WHERE ID_TEMA NOT IN (SELECT ID "
        "FROM TEMA)"_qs,
        u"SELECT 'song without theme', ID FROM MUSICA WHERE ID NOT IN (SELECT ID_MUSICA FROM "
        "TEMA_MUSICA)"_qs,
        u"SELECT 'link twice', ID_MUSICA FROM TEMA_MUSICA GROUP BY ID_MUSICA, ID_TEMA HAVING "
        "COUNT(*) > 1"_qs,
        u"SELECT 'song without text', ID FROM MUSICA WHERE COALESCE(MUSICA, '') || "
        "COALESCE(MUSICA2, '') = ''"_qs,
        u"SELECT 'song without title', ID FROM MUSICA WHERE COALESCE(TITULO, '') = ''"_qs,
        u"SELECT 'wrong category', ID FROM MUSICA WHERE CATEGORIA IS NULL OR CATEGORIA NOT IN (1, "
        "2)"_qs,
        // A key that the entry panel does not offer is saved there as an empty one, and an unknown
        // one in a viewer as a question mark.
        u"SELECT 'unknown key', ID FROM MUSICA WHERE TOM IS NULL OR (TOM NOT IN ('', '?') AND TOM "
        u"NOT IN "
        u"(SELECT NOTA FROM "
        "TOM) AND TOM NOT IN (SELECT MAIS FROM TOM))"_qs,
        u"SELECT 'unknown variation', ID FROM MUSICA WHERE VARIACAO IS NULL OR VARIACAO NOT IN "
        "(SELECT NOMENCLATURA FROM VARIACAO)"_qs,
        u"SELECT 'theme twice', MIN(ID) FROM TEMA GROUP BY LOWER(DESCRICAO) HAVING COUNT(*) > 1"_qs,
        u"SELECT 'theme without name', ID FROM TEMA WHERE TRIM(COALESCE(DESCRICAO, '')) = ''"_qs,
        u"SELECT 'place in no setlist', ID_LISTA FROM LISTA_MUSICA WHERE ID_LISTA NOT IN (SELECT "
        u"ID "
        "FROM LISTA)"_qs,
        u"SELECT 'gap in a setlist', ID_LISTA FROM LISTA_MUSICA GROUP BY ID_LISTA HAVING "
        u"MIN(ORDEM) "
        "<> 0 OR MAX(ORDEM) <> COUNT(*) - 1 OR COUNT(DISTINCT ORDEM) <> COUNT(*)"_qs,
        u"SELECT 'setlist without date', ID FROM LISTA WHERE DATA IS NULL OR DATE(DATA) IS NULL "
        "OR DATE(DATA) <> DATA OR COALESCE(NOME, '') = ''"_qs,
        u"SELECT 'negative count', ID FROM MUSICA WHERE CONTADOR < 0"_qs,
        u"SELECT 'notes changed', COUNT(*) FROM TOM HAVING COUNT(*) <> 12"_qs,
        u"SELECT 'variations changed', COUNT(*) FROM VARIACAO HAVING COUNT(*) <> 2"_qs};
    for (const QString& query : wrong) {
        const auto rows = m_file.Rows(query);
        if (!rows.isEmpty())
            return rows.constFirst().join(u' ');
    }
    return {};
}
