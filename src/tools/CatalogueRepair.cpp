#include "tools/CatalogueRepair.h"

#include "runtime/RuntimeError.h"
#include "songbook/Reading.h"
#include "store/sqlite/Statement.h"
#include "tools/CheckedCatalogue.h"
#include "tools/RowRescue.h"

#include <array>
#include <limits>

namespace {

QString ToQString(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

qint64 Number(sqlite3* database, const QByteArray& sql)
{
    Statement rows(database, sql);
    return rows.Step() ? rows.Whole(0) : 0;
}

/// What the user calls the rows of a table.
QString RowsOf(const QByteArray& table)
{
    if (table == "MUSICA")
        return u"músicas"_qs;
    if (table == "TEMA")
        return u"temas"_qs;
    if (table == "LISTA")
        return u"listas"_qs;
    if (table == "TEMA_MUSICA")
        return u"ligações de músicas com temas"_qs;
    if (table == "LISTA_MUSICA")
        return u"lugares em listas"_qs;
    return table == "TOM" ? u"notas"_qs : u"variações de tom"_qs;
}

bool IsFixed(const QByteArray& table)
{
    return table == "TOM" || table == "VARIACAO";
}

/// Statements that leave the catalogue as the program would have it.
struct Mend
{
    const char16_t* what;
    const char* sql;
};

constexpr std::array<Mend, 6> Mends{{
    {u"ligações de temas com músicas que não existem retiradas",
     "DELETE FROM TEMA_MUSICA WHERE NOT EXISTS (SELECT 1 FROM MUSICA WHERE ID = ID_MUSICA)"},
    {u"ligações de músicas com temas que não existem retiradas",
     "DELETE FROM TEMA_MUSICA WHERE NOT EXISTS (SELECT 1 FROM TEMA WHERE ID = ID_TEMA)"},
    // An import may have made one theme many times.
    {u"temas juntados a outro com o mesmo nome",
     "UPDATE TEMA_MUSICA SET ID_TEMA = (SELECT MIN(B.ID) FROM TEMA AS A JOIN TEMA AS B "
     "ON B.DESCRICAO = A.DESCRICAO WHERE A.ID = ID_TEMA) WHERE ID_TEMA IN "
     "(SELECT ID FROM TEMA WHERE DESCRICAO <> ''); "
     "DELETE FROM TEMA WHERE DESCRICAO <> '' AND "
     "ID NOT IN (SELECT MIN(ID) FROM TEMA GROUP BY DESCRICAO)"},
    {u"ligações repetidas retiradas",
     "DELETE FROM TEMA_MUSICA WHERE rowid NOT IN "
     "(SELECT MIN(rowid) FROM TEMA_MUSICA GROUP BY ID_MUSICA, ID_TEMA)"},
    {u"lugares em listas com músicas que não existem retirados",
     "DELETE FROM LISTA_MUSICA WHERE NOT EXISTS (SELECT 1 FROM MUSICA WHERE ID = ID_MUSICA)"},
    {u"lugares em listas que não existem retirados",
     "DELETE FROM LISTA_MUSICA WHERE NOT EXISTS (SELECT 1 FROM LISTA WHERE ID = ID_LISTA)"},
}};

class Workshop
{
public:
    Workshop(const CheckedCatalogue& old, const QString& output)
        : m_old(old)
        , m_new(EmptyCatalogue::Make(output))
    {
    }

    void Copy(const CatalogueCheck::Progress& progress);
    void MendLinks();
    void MendSongsWithoutTheme();
    void Finish();

    CatalogueRepair::Outcome outcome;

private:
    void CopyTable(const QByteArray& table);
    void TellLosses(const QByteArray& table, const RowRescue& rescue);
    void TellLostSongs();
    void KeepSequence(const QByteArray& table);
    void MendFixedRows();
    void Mended(qint64 count, const QString& what);

    const CheckedCatalogue& m_old;
    EmptyCatalogue::Handle m_new;
    bool m_readAnything = false;
};

void Workshop::Mended(qint64 count, const QString& what)
{
    if (count > 0)
        outcome.mended.append(what + u": " + QString::number(count));
}

void Workshop::Copy(const CatalogueCheck::Progress& progress)
{
    // One write, which reaches the disk before it counts.
    EmptyCatalogue::Run(m_new.get(), "PRAGMA synchronous = FULL; BEGIN");
    qsizetype done = 0;
    for (const EmptyCatalogue::Table& table : EmptyCatalogue::Tables()) {
        CopyTable(table.name);
        if (progress)
            progress(++done, EmptyCatalogue::Tables().size(), u"tabelas"_qs);
    }
    if (!m_readAnything)
        throw RuntimeError(RuntimeError::StoreFailure,
                           u"Nada do que há no arquivo pôde ser lido."_qs, m_old.Path());
    MendFixedRows();
    TellLostSongs();
}

void Workshop::CopyTable(const QByteArray& table)
{
    if (!m_old.Has(table)) {
        (IsFixed(table) ? outcome.mended : outcome.lost)
            .append(u"tabela "_qs + QString::fromLatin1(table) + u" criada de novo"_qs);
        return;
    }
    if (IsFixed(table))
        EmptyCatalogue::Run(m_new.get(), "DELETE FROM " + table);
    RowRescue rescue(m_old, m_new.get(), table);
    rescue.Run();
    // The fixed tables come with every catalogue; alone they are nothing to keep.
    if (!IsFixed(table) && !rescue.IsUnreadable() && (rescue.Copied() > 0 || m_old.IsWhole()))
        m_readAnything = true;
    TellLosses(table, rescue);
    KeepSequence(table);
}

void Workshop::TellLosses(const QByteArray& table, const RowRescue& rescue)
{
    if (rescue.IsUnreadable()) {
        outcome.lost.append(RowsOf(table) + u": nenhuma pôde ser lida"_qs);
        return;
    }
    for (const auto& [first, last] : rescue.Gaps()) {
        QString where = u"a de número "_qs + QString::number(first);
        if (first != last)
            where = u"as que havia entre os números "_qs + QString::number(first) + u" e "_qs +
                    QString::number(last);
        outcome.lost.append(RowsOf(table) + u": não foi possível ler "_qs + where);
    }
    for (const qint64 id : rescue.InPart())
        outcome.lost.append(RowsOf(table) + u": da de número "_qs + QString::number(id) +
                            u" só uma parte pôde ser lida"_qs);
}

/// An index may still know the names of songs that are gone.
void Workshop::TellLostSongs()
{
    if (outcome.lost.isEmpty())
        return;
    try {
        Statement rows(m_old.Handle(), "SELECT rowid, TITULO, REFERENCIA FROM MUSICA INDEXED BY "
                                       "MUSICA_LISTAGEM WHERE typeof(ID) = 'integer'");
        Statement kept(m_new.get(), "SELECT 1 FROM MUSICA WHERE ID = ?");
        while (rows.Step()) {
            StatementRun run(kept);
            kept.Bind({Value(rows.Whole(0))});
            if (!kept.Step())
                outcome.lost.append(u"música perdida: %1 \"%2\" (%3)"_qs.arg(
                    QString::number(rows.Whole(0)), Songbook::Excerpt(ToQString(rows.Text(1))),
                    Songbook::Excerpt(ToQString(rows.Text(2)))));
        }
    } catch (const RuntimeError&) {
        // Then the numbers above are all that is known.
    }
}

/// An identifier is never given out twice, also not one of a song that is gone.
void Workshop::KeepSequence(const QByteArray& table)
{
    try {
        const qint64 given =
            Number(m_old.Handle(), "SELECT seq FROM sqlite_sequence WHERE name = '" + table + "'");
        if (given <= 0 || given > std::numeric_limits<qint32>::max())
            return;
        const QByteArray number = QByteArray::number(given);
        EmptyCatalogue::Run(m_new.get(), "INSERT INTO sqlite_sequence (name, seq) SELECT '" +
                                             table +
                                             "', 0 WHERE NOT EXISTS (SELECT 1 FROM "
                                             "sqlite_sequence WHERE name = '" +
                                             table + "')");
        EmptyCatalogue::Run(m_new.get(), "UPDATE sqlite_sequence SET seq = max(seq, " + number +
                                             ") WHERE name = '" + table + "'");
    } catch (const RuntimeError&) {
        // Without a sequence the largest identifier counts.
    }
}

void Workshop::MendFixedRows()
{
    constexpr qint64 Semitones = 12;
    if (m_old.ColumnsOf("TOM").size() != 4 ||
        Number(m_new.get(), "SELECT COUNT(*) FROM TOM") != Semitones) {
        EmptyCatalogue::RefillFixedTable(m_new.get(), "TOM");
        outcome.mended.append(u"as doze notas postas de novo"_qs);
    }
    if (Number(m_new.get(), "SELECT COUNT(*) FROM VARIACAO WHERE NOMENCLATURA = ''") != 1) {
        EmptyCatalogue::RefillFixedTable(m_new.get(), "VARIACAO");
        outcome.mended.append(u"as variações de tom postas de novo"_qs);
    }
}

void Workshop::MendLinks()
{
    EmptyCatalogue::Run(m_new.get(), "CREATE TEMP TABLE PLACES AS SELECT ID_LISTA, COUNT(*) AS N "
                                     "FROM LISTA_MUSICA GROUP BY ID_LISTA");
    for (const Mend& mend : Mends)
        Mended(EmptyCatalogue::Run(m_new.get(), mend.sql), QString::fromUtf16(mend.what));
    // Setlists that lost a song are numbered anew, so that none of their places is empty.
    EmptyCatalogue::Run(
        m_new.get(),
        "UPDATE LISTA_MUSICA SET ORDEM = R.N FROM (SELECT rowid AS ROW, ID_LISTA AS LIST, "
        "row_number() OVER (PARTITION BY ID_LISTA ORDER BY ORDEM, rowid) - 1 AS N "
        "FROM LISTA_MUSICA) AS R WHERE LISTA_MUSICA.rowid = R.ROW AND EXISTS (SELECT 1 FROM PLACES "
        "AS P WHERE P.ID_LISTA = R.LIST AND P.N <> "
        "(SELECT COUNT(*) FROM LISTA_MUSICA AS L WHERE L.ID_LISTA = R.LIST)); DROP TABLE PLACES");
}

/// The program keeps no song without a theme; such songs get the theme that imports give them.
void Workshop::MendSongsWithoutTheme()
{
    const QByteArray without = " FROM MUSICA AS M WHERE NOT EXISTS "
                               "(SELECT 1 FROM TEMA_MUSICA AS L WHERE L.ID_MUSICA = M.ID)";
    if (Number(m_new.get(), "SELECT COUNT(*)" + without) == 0)
        return;
    EmptyCatalogue::Run(m_new.get(),
                        "INSERT INTO TEMA (DESCRICAO, ORDEM, COR) SELECT 'Sem Tema', 3, '' WHERE "
                        "NOT EXISTS (SELECT 1 FROM TEMA WHERE DESCRICAO = 'Sem Tema')");
    Mended(EmptyCatalogue::Run(m_new.get(),
                               "INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) SELECT M.ID, (SELECT "
                               "MIN(ID) FROM TEMA WHERE DESCRICAO = 'Sem Tema')" +
                                   without + " ORDER BY M.ID"),
           u"músicas sem tema postas em \"Sem Tema\""_qs);
}

void Workshop::Finish()
{
    EmptyCatalogue::Run(m_new.get(), "COMMIT");
    m_new.reset();
}

} // namespace

CatalogueRepair::Outcome CatalogueRepair::Repair(const CheckedCatalogue& catalogue,
                                                 const QString& output,
                                                 const CatalogueCheck::Progress& progress)
{
    Workshop workshop(catalogue, output);
    workshop.Copy(progress);
    workshop.MendLinks();
    workshop.MendSongsWithoutTheme();
    workshop.Finish();
    workshop.outcome.after = CatalogueCheck::Check(CheckedCatalogue(output), progress);
    return workshop.outcome;
}
