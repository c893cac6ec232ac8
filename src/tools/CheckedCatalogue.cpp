#include "tools/CheckedCatalogue.h"

#include "runtime/RuntimeError.h"
#include "store/CatalogueFile.h"
#include "store/sqlite/Failure.h"
#include "store/sqlite/FileName.h"
#include "store/sqlite/Statement.h"
#include "tools/ExcerptFunction.h"

#include <sqlite3.h>

#include <algorithm>

namespace {

/// How long the program itself may hold the file while it stores something.
constexpr int Patience = 5000; // ms

constexpr int PrimaryCode = 0xff;

bool IsDamage(int code)
{
    const int primary = code & PrimaryCode;
    return primary == SQLITE_CORRUPT || primary == SQLITE_NOTADB || primary == SQLITE_IOERR ||
           primary == SQLITE_ERROR; // what a damaged list of tables says
}

/// An interrupted write lies beside the file, and undoing it would change the file.
bool IsHalfWritten(int code)
{
    return code == SQLITE_READONLY_ROLLBACK || code == SQLITE_READONLY_RECOVERY ||
           code == SQLITE_READONLY_CANTINIT;
}

} // namespace

CheckedCatalogue::CheckedCatalogue(const QString& path)
    : m_path(path)
{
    CatalogueFile::CheckHeader(path);
    Open();
    ReadColumns();
    if (m_whole && m_columns.isEmpty())
        throw RuntimeError(RuntimeError::StoreFailure,
                           u"O arquivo não é um banco de dados do Melodario."_qs, path);
}

void CheckedCatalogue::Open()
{
    const QByteArray name = SqliteFileName(m_path);
    sqlite3* raw = nullptr;
    const int opened = sqlite3_open_v2(name.constData(), &raw, SQLITE_OPEN_READONLY, nullptr);
    m_handle.reset(raw);
    if (!raw)
        throw RuntimeError(RuntimeError::StoreFailure, u"Falta memória."_qs, m_path);
    sqlite3_extended_result_codes(raw, 1);
    if (opened != SQLITE_OK)
        Failure::ThrowLast(raw);
    sqlite3_busy_timeout(raw, Patience);
    ExcerptFunction::AddTo(raw);
    // What a foreign file has in its schema must not run anything.
    sqlite3_db_config(raw, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_exec(raw, "BEGIN", nullptr, nullptr, nullptr);
    const char* const look = "SELECT count(*) FROM sqlite_master";
    int code = sqlite3_exec(raw, look, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK && IsDamage(code)) {
        m_whole = false;
        // Lets SQLite pass over tables that it cannot understand and pages that are not there.
        sqlite3_exec(raw, "PRAGMA writable_schema = ON", nullptr, nullptr, nullptr);
        code = sqlite3_exec(raw, look, nullptr, nullptr, nullptr);
    }
    if (IsHalfWritten(code))
        throw RuntimeError(RuntimeError::StoreFailure,
                           u"Uma gravação foi interrompida no meio. Abra este catálogo uma vez com "
                           "o Melodario, que desfaz o que ficou pela metade, e tente de novo."_qs,
                           m_path);
    if (code != SQLITE_OK && !IsDamage(code))
        Failure::ThrowLast(raw);
    try {
        CatalogueFile::CheckLength(raw, m_path);
    } catch (const RuntimeError&) {
        m_whole = false;
    }
}

void CheckedCatalogue::ReadColumns()
{
    for (const EmptyCatalogue::Table& table : EmptyCatalogue::Tables()) {
        QList<QByteArray> found;
        try {
            Statement rows(m_handle.get(),
                           "SELECT name FROM pragma_table_info('" + table.name + "')");
            while (rows.Step()) {
                const std::string_view name = rows.Text(0);
                found.append(
                    QByteArray(name.data(), static_cast<qsizetype>(name.size())).toUpper());
            }
        } catch (const RuntimeError&) {
            m_whole = false;
        }
        QList<QByteArray> known;
        std::copy_if(table.columns.begin(), table.columns.end(), std::back_inserter(known),
                     [&found](const QByteArray& column) { return found.contains(column); });
        if (!known.isEmpty())
            m_columns.insert(table.name, known);
    }
}

bool CheckedCatalogue::HasEverything() const
{
    const QList<EmptyCatalogue::Table>& tables = EmptyCatalogue::Tables();
    return std::all_of(tables.begin(), tables.end(), [this](const EmptyCatalogue::Table& table) {
        return ColumnsOf(table.name) == table.columns;
    });
}
