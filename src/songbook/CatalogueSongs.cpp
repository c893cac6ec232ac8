#include "songbook/CatalogueSongs.h"

#include "chords/Notas.h"
#include "runtime/Date.h"
#include "runtime/RuntimeError.h"
#include "store/CatalogueFile.h"
#include "store/StoredDate.h"
#include "store/dialect/Schema.h"
#include "store/sqlite/Failure.h"
#include "store/sqlite/FileName.h"
#include "store/sqlite/Statement.h"

#include <QSet>

#include <sqlite3.h>

namespace Songbook {

namespace {

/// How long the program itself may hold the file while it stores something.
constexpr int Patience = 5000; // ms

QString ToQString(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

const QByteArray Columns = QByteArrayLiteral("SELECT M.ID, M.TITULO, M.REFERENCIA, M.MUSICA, "
                                             "M.MUSICA2, M.TOM, M.VARIACAO, M.CATEGORIA FROM ");

std::optional<QString> Field(const Statement& row, int column)
{
    if (row.ColumnKind(column) == Statement::Kind::Null)
        return std::nullopt;
    return ToQString(row.Text(column));
}

std::optional<int> Number(const Statement& row, int column)
{
    if (row.ColumnKind(column) == Statement::Kind::Null)
        return std::nullopt;
    const qint64 number = row.Whole(column);
    return static_cast<int>(qBound(qint64{-32768}, number, qint64{32767}));
}

} // namespace

QString Setlist::FullName() const
{
    return date.isEmpty() ? name : QString(name + u' ' + date);
}

void CatalogueSongs::CloseHandle::operator()(sqlite3* handle) const noexcept
{
    sqlite3_close_v2(handle);
}

CatalogueSongs::CatalogueSongs(const QString& path)
{
    CatalogueFile::CheckHeader(path);
    const QByteArray name = SqliteFileName(path);
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2(name.constData(), &handle, SQLITE_OPEN_READONLY, nullptr);
    m_handle.reset(handle);
    if (!handle)
        throw RuntimeError(RuntimeError::StoreFailure, u"Não há memória para abrir o catálogo."_qs,
                           path);
    sqlite3_extended_result_codes(handle, 1);
    if (result != SQLITE_OK)
        Failure::ThrowLast(handle);
    sqlite3_busy_timeout(handle, Patience);
    // What a foreign file has in its schema must not run anything.
    sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    Statement(handle, "BEGIN").Step();
    const Schema schema = CatalogueFile::ReadSchema(handle);
    CatalogueFile::CheckLength(handle, path);
    CatalogueFile::CheckTables(handle, schema);
    LoadScale();
}

CatalogueSongs::~CatalogueSongs() = default;

void CatalogueSongs::LoadScale()
{
    Statement rows(m_handle.get(), "SELECT NOTA, MAIS FROM TOM ORDER BY ORDEM, ID");
    Funcoes::Escala first{u"?"_qs};
    Funcoes::Escala second{u"?"_qs};
    std::size_t count = 0;
    while (rows.Step()) {
        if (++count >= first.size())
            break;
        first[count] = Field(rows, 0).value_or(QString());
        second[count] = Field(rows, 1).value_or(QString());
    }
    if (count != first.size() - 1)
        throw RuntimeError(RuntimeError::StoreFailure,
                           u"A tabela TOM do catálogo não tem as doze notas."_qs, {});
    Funcoes::Notas = first;
    Funcoes::Notas_Mais = second;
}

QList<Setlist> CatalogueSongs::Setlists()
{
    Statement rows(m_handle.get(), "SELECT ID, NOME, DATA FROM LISTA ORDER BY DATA DESC, ID");
    QList<Setlist> lists;
    while (rows.Step()) {
        Setlist list{rows.Whole(0), ToQString(rows.Text(1)), ToQString(rows.Text(2))};
        if (const auto date = StoredDate::FromText(rows.Text(2)))
            list.date = Date::ToText(*date);
        lists.append(list);
    }
    return lists;
}

QList<ExchangeSong>
CatalogueSongs::Songs(const std::function<void(qsizetype done, qsizetype all)>& progress)
{
    qsizetype all = 0;
    if (Statement count(m_handle.get(), "SELECT COUNT(*) FROM MUSICA"); count.Step())
        all = count.Whole(0);
    Statement rows(m_handle.get(), Columns + "MUSICA AS M ORDER BY M.ID");
    int gone = 0;
    return Read(rows, true, gone, [&progress, all](qsizetype done) {
        if (progress)
            progress(done, all);
    });
}

QList<ExchangeSong> CatalogueSongs::SongsOf(qint64 setlist, bool repeats, int& gone)
{
    Statement rows(m_handle.get(),
                   Columns + "LISTA_MUSICA AS L LEFT JOIN MUSICA AS M ON M.ID = L.ID_MUSICA "
                             "WHERE L.ID_LISTA = ? ORDER BY L.ORDEM, L.rowid");
    rows.Bind({Value(setlist)});
    return Read(rows, repeats, gone);
}

QList<ExchangeSong> CatalogueSongs::Read(Statement& rows, bool repeats, int& gone,
                                         const std::function<void(qsizetype done)>& progress)
{
    gone = 0;
    QSet<qint64> read;
    QList<ExchangeSong> songs;
    while (rows.Step()) {
        if (rows.ColumnKind(0) == Statement::Kind::Null) {
            ++gone;
            continue;
        }
        if (!repeats && read.contains(rows.Whole(0)))
            continue;
        read.insert(rows.Whole(0));
        ExchangeSong song{Field(rows, 1), Field(rows, 2), Field(rows, 3),  Field(rows, 4),
                          Field(rows, 5), Field(rows, 6), Number(rows, 7), {}};
        // Most songs have one text, which is then kept once.
        if (song.letra2 == song.letra1)
            song.letra2 = song.letra1;
        ReadThemes(rows.Whole(0), song);
        songs.append(std::move(song));
        if (progress)
            progress(songs.size());
    }
    return songs;
}

void CatalogueSongs::ReadThemes(qint64 song, ExchangeSong& into)
{
    Statement rows(m_handle.get(),
                   "SELECT T.DESCRICAO FROM TEMA_MUSICA AS L JOIN TEMA AS T ON T.ID = L.ID_TEMA "
                   "WHERE L.ID_MUSICA = ? ORDER BY L.rowid");
    rows.Bind({Value(song)});
    while (rows.Step()) {
        const QString theme = ToQString(rows.Text(0));
        if (!theme.isEmpty())
            into.temas.append(theme);
    }
}

} // namespace Songbook
