#include "tools/CatalogueCheck.h"

#include "runtime/RuntimeError.h"
#include "songbook/UsualScale.h"
#include "store/sqlite/Statement.h"
#include "tools/CheckedCatalogue.h"
#include "tools/LookAlikes.h"
#include "tools/LyricLetters.h"

#include <algorithm>
#include <array>

namespace {

using CatalogueCheck::Finding;

QString ToQString(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

qint64 Number(const CheckedCatalogue& catalogue, const QByteArray& sql)
{
    Statement rows(catalogue.Handle(), sql);
    return rows.Step() ? rows.Whole(0) : 0;
}

/// A question whose rows are what is wrong.
struct Question
{
    const char16_t* what;
    bool mendable;
    /// The tables and columns that it asks for, separated by blanks.
    const char* needs;
    /// Gives one text for each case.
    const char* sql;
};

// A song as a musician knows it; a title or reference that is missing leaves its quotes empty.
#define SONG "TRECHO(M.ID) || ' \"' || TRECHO(M.TITULO) || '\" (' || TRECHO(M.REFERENCIA) || ')'"

constexpr std::array<Question, 11> Questions{{
    {u"Ligações de temas com músicas que não existem", true, "TEMA_MUSICA MUSICA",
     "SELECT 'música ' || TRECHO(ifnull(L.ID_MUSICA, '(nenhuma)')) || ', tema ' || "
     "ifnull((SELECT '\"' || TRECHO(DESCRICAO) || '\"' FROM TEMA WHERE ID = L.ID_TEMA), "
     "TRECHO(ifnull(L.ID_TEMA, '(nenhum)'))) "
     "FROM TEMA_MUSICA AS L WHERE NOT EXISTS (SELECT 1 FROM MUSICA WHERE ID = L.ID_MUSICA) "
     "ORDER BY L.rowid"},
    {u"Ligações de músicas com temas que não existem", true, "TEMA_MUSICA MUSICA TEMA",
     "SELECT " SONG " || ', tema ' || TRECHO(ifnull(L.ID_TEMA, '(nenhum)')) FROM TEMA_MUSICA AS L "
     "JOIN MUSICA AS M ON M.ID = L.ID_MUSICA "
     "WHERE NOT EXISTS (SELECT 1 FROM TEMA WHERE ID = L.ID_TEMA) ORDER BY L.rowid"},
    {u"Ligações repetidas de uma música com um tema", true, "TEMA_MUSICA MUSICA TEMA",
     "SELECT " SONG " || ', tema \"' || TRECHO(T.DESCRICAO) || '\", ' || COUNT(*) || ' vezes' "
     "FROM TEMA_MUSICA AS L JOIN MUSICA AS M ON M.ID = L.ID_MUSICA "
     "JOIN TEMA AS T ON T.ID = L.ID_TEMA GROUP BY M.ID, T.ID HAVING COUNT(*) > 1 ORDER BY M.ID"},
    {u"Lugares em listas com músicas que não existem", true, "LISTA LISTA_MUSICA MUSICA",
     "SELECT 'lista \"' || TRECHO(S.NOME) || '\", lugar ' || TRECHO(ifnull(L.ORDEM + 1, '?')) || "
     "', música ' || TRECHO(ifnull(L.ID_MUSICA, '(nenhuma)')) FROM LISTA_MUSICA AS L "
     "JOIN LISTA AS S ON S.ID = L.ID_LISTA "
     "WHERE NOT EXISTS (SELECT 1 FROM MUSICA WHERE ID = L.ID_MUSICA) ORDER BY S.ID, L.ORDEM"},
    {u"Lugares em listas que não existem", true, "LISTA LISTA_MUSICA",
     "SELECT 'lista ' || TRECHO(ifnull(L.ID_LISTA, '(nenhuma)')) || ', lugar ' || "
     "TRECHO(ifnull(L.ORDEM + 1, '?')) FROM LISTA_MUSICA AS L "
     "WHERE NOT EXISTS (SELECT 1 FROM LISTA WHERE ID = L.ID_LISTA) ORDER BY L.rowid"},
    {u"Músicas sem tema", true, "MUSICA TEMA_MUSICA TEMA",
     "SELECT " SONG " FROM MUSICA AS M WHERE NOT EXISTS (SELECT 1 FROM TEMA_MUSICA AS L "
     "JOIN TEMA AS T ON T.ID = L.ID_TEMA WHERE L.ID_MUSICA = M.ID) ORDER BY M.ID"},
    {u"Músicas sem título", false, "MUSICA",
     "SELECT " SONG " FROM MUSICA AS M WHERE trim(ifnull(M.TITULO, '')) = '' ORDER BY M.ID"},
    {u"Músicas sem letra", false, "MUSICA",
     "SELECT " SONG " FROM MUSICA AS M WHERE "
     "trim(ifnull(M.MUSICA, ''), char(9, 10, 13, 32, 160)) = '' AND "
     "trim(ifnull(M.MUSICA2, ''), char(9, 10, 13, 32, 160)) = '' ORDER BY M.ID"},
    {u"Músicas com um tom que não existe", false, "MUSICA TOM",
     "SELECT " SONG
     " || ', tom \"' || TRECHO(M.TOM) || '\"' FROM MUSICA AS M WHERE M.TOM <> '' AND "
     "NOT EXISTS (SELECT 1 FROM TOM AS N WHERE N.NOTA = M.TOM OR N.MAIS = M.TOM) ORDER BY M.ID"},
    {u"Temas sem nome", false, "TEMA",
     "SELECT 'tema ' || TRECHO(T.ID) FROM TEMA AS T WHERE trim(ifnull(T.DESCRICAO, '')) = '' "
     "ORDER BY T.ID"},
    {u"Temas com o mesmo nome", true, "TEMA",
     "SELECT '\"' || TRECHO(T.DESCRICAO) || '\", ' || COUNT(*) || ' vezes' FROM TEMA AS T "
     "WHERE T.DESCRICAO <> '' GROUP BY T.DESCRICAO HAVING COUNT(*) > 1 ORDER BY MIN(T.ID)"},
}};

/// One run over a catalogue. Damage may break off any part of it; the others go on.
class Examination
{
public:
    Examination(const CheckedCatalogue& catalogue, const CatalogueCheck::Progress& progress)
        : m_catalogue(catalogue)
        , m_progress(progress)
    {
    }

    CatalogueCheck::Result Run();

private:
    template <typename Part>
    void Attempt(const QString& what, Part&& part);
    void Add(const Finding& finding);
    qint64 Count(const QByteArray& table);
    void Integrity();
    void Layout();
    void FixedRows();
    void Ask(const Question& question);
    bool CanAsk(const Question& question) const;

    const CheckedCatalogue& m_catalogue;
    const CatalogueCheck::Progress& m_progress;
    CatalogueCheck::Result m_result;
    QStringList m_unseen;
};

template <typename Part>
void Examination::Attempt(const QString& what, Part&& part)
{
    try {
        part();
    } catch (const RuntimeError&) {
        m_unseen.append(what);
    }
}

void Examination::Add(const Finding& finding)
{
    if (finding.count > 0 || !finding.cases.isEmpty())
        m_result.findings.append(finding);
}

qint64 Examination::Count(const QByteArray& table)
{
    qint64 count = 0;
    if (m_catalogue.Has(table))
        Attempt(u"Contagem da tabela "_qs + QString::fromLatin1(table),
                [&] { count = Number(m_catalogue, "SELECT COUNT(*) FROM " + table); });
    return count;
}

/// SQLite's own look at the file. Its words are for programmers; what matters is whether only an
/// index differs from its table, which costs nothing, or rows may be gone.
void Examination::Integrity()
{
    qsizetype indexes = 0;
    qsizetype pages = m_catalogue.IsWhole() ? 0 : 1;
    try {
        Statement rows(m_catalogue.Handle(), "PRAGMA integrity_check(1000)");
        while (rows.Step()) {
            const QString words = ToQString(rows.Text(0));
            if (words == u"ok")
                break;
            const bool index = words.contains(u"index ") && words.startsWith(u"row ");
            (index || words.startsWith(u"wrong # of entries in index") ? indexes : pages) += 1;
        }
    } catch (const RuntimeError&) {
        ++pages;
    }
    if (pages > 0)
        Add({u"O arquivo está danificado: uma parte dele não pode ser lida"_qs, pages, {}, true});
    if (indexes > 0)
        Add({u"Um índice do arquivo não confere com as músicas"_qs, indexes, {}, true});
}

void Examination::Layout()
{
    Finding missing{u"Faltam tabelas ou colunas de que o programa precisa"_qs, 0, {}, true};
    for (const EmptyCatalogue::Table& table : EmptyCatalogue::Tables()) {
        const QString name = QString::fromLatin1(table.name);
        if (!m_catalogue.Has(table.name)) {
            missing.cases.append(u"tabela "_qs + name);
            continue;
        }
        for (const QByteArray& column : table.columns) {
            if (!m_catalogue.ColumnsOf(table.name).contains(column))
                missing.cases.append(u"coluna "_qs + name + u'.' + QString::fromLatin1(column));
        }
    }
    missing.count = missing.cases.size();
    Add(missing);
}

void Examination::FixedRows()
{
    constexpr qint64 Semitones = 12;
    Finding wrong{u"Faltam linhas com que o programa conta"_qs, 0, {}, true};
    if (m_catalogue.ColumnsOf("TOM").size() == 4 &&
        Number(m_catalogue, "SELECT COUNT(*) FROM TOM") != Semitones)
        wrong.cases.append(u"a tabela TOM não tem exatamente doze notas"_qs);
    if (m_catalogue.ColumnsOf("VARIACAO").size() == 2 &&
        Number(m_catalogue, "SELECT COUNT(*) FROM VARIACAO WHERE NOMENCLATURA = ''") != 1)
        wrong.cases.append(u"a tabela VARIACAO não tem exatamente uma linha vazia"_qs);
    wrong.count = wrong.cases.size();
    Add(wrong);
}

bool Examination::CanAsk(const Question& question) const
{
    const QList<QByteArray> needs = QByteArray(question.needs).split(' ');
    const QList<EmptyCatalogue::Table>& tables = EmptyCatalogue::Tables();
    return std::all_of(tables.begin(), tables.end(), [&](const EmptyCatalogue::Table& table) {
        return !needs.contains(table.name) || m_catalogue.ColumnsOf(table.name) == table.columns;
    });
}

void Examination::Ask(const Question& question)
{
    if (!CanAsk(question))
        return;
    Finding finding{QString::fromUtf16(question.what), 0, {}, question.mendable};
    Attempt(finding.what, [&] {
        Statement rows(m_catalogue.Handle(), question.sql);
        while (rows.Step())
            finding.cases.append(ToQString(rows.Text(0)));
    });
    finding.count = finding.cases.size();
    Add(finding);
}

CatalogueCheck::Result Examination::Run()
{
    Integrity();
    Layout();
    m_result.songs = Count("MUSICA");
    m_result.themes = Count("TEMA");
    m_result.setlists = Count("LISTA");
    Attempt(u"Notas e variações"_qs, [this] { FixedRows(); });
    for (const Question& question : Questions)
        Ask(question);
    Attempt(u"Músicas parecidas"_qs,
            [this] { Add(CatalogueCheck::FindLookAlikes(m_catalogue, m_progress)); });
    if (!m_unseen.isEmpty())
        Add({u"Não foi possível verificar, por causa do dano"_qs, m_unseen.size(), m_unseen, true});
    return m_result;
}

/// @return the names of songs, as the questions give them
QStringList Names(const CheckedCatalogue& catalogue, const QList<qint64>& songs)
{
    Statement rows(catalogue.Handle(), "SELECT " SONG " FROM MUSICA AS M WHERE M.ID = ?");
    QStringList names;
    for (const qint64 song : songs) {
        StatementRun run(rows);
        rows.Bind({Value(song)});
        names.append(rows.Step() ? ToQString(rows.Text(0)) : QString::number(song));
    }
    return names;
}

} // namespace

CatalogueCheck::Finding CatalogueCheck::FindLookAlikes(const CheckedCatalogue& catalogue,
                                                       const Progress& progress)
{
    Finding finding{u"Músicas parecidas"_qs, 0, {}, false};
    const QList<QByteArray> columns = catalogue.ColumnsOf("MUSICA");
    if (!columns.contains("ID") || !columns.contains("TITULO") || !columns.contains("MUSICA") ||
        !columns.contains("MUSICA2") || !columns.contains("REFERENCIA"))
        return finding;
    Songbook::LoadUsualScale();
    const qint64 all = Number(catalogue, "SELECT COUNT(*) FROM MUSICA");
    LookAlikes alikes;
    Statement rows(catalogue.Handle(),
                   "SELECT ID, TITULO, MUSICA, MUSICA2 FROM MUSICA NOT INDEXED ORDER BY rowid");
    qsizetype done = 0;
    while (rows.Step()) {
        QString text = ToQString(rows.Text(2));
        if (QStringView(text).trimmed().isEmpty())
            text = ToQString(rows.Text(3));
        alikes.Add(rows.Whole(0), LyricLetters::Of(ToQString(rows.Text(1)), text));
        if (progress)
            progress(++done, static_cast<qsizetype>(all), u"músicas"_qs);
    }
    for (const LookAlikes::Group& group : alikes.Groups()) {
        const QString how = group.likeness == LookAlikes::Same
                                ? u"iguais"_qs
                                : u"%1 % iguais"_qs.arg(group.likeness);
        finding.cases.append(how + u": " + Names(catalogue, group.songs).join(u"; "));
    }
    finding.count = finding.cases.size();
    return finding;
}

CatalogueCheck::Result CatalogueCheck::Check(const CheckedCatalogue& catalogue,
                                             const Progress& progress)
{
    return Examination(catalogue, progress).Run();
}
