#include "tools/EmptyCatalogue.h"

#include "runtime/RuntimeError.h"
#include "store/sqlite/Failure.h"
#include "store/sqlite/FileName.h"
#include "store/sqlite/Statement.h"
#include "tools/DeliveredSchema.h"

#include <QString>

#include <sqlite3.h>

namespace {

QByteArray ToBytes(std::string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

QList<EmptyCatalogue::Table> ReadTables()
{
    const EmptyCatalogue::Handle handle = EmptyCatalogue::Make({});
    Statement rows(handle.get(), "SELECT m.name, c.name FROM sqlite_master AS m "
                                 "JOIN pragma_table_info(m.name) AS c WHERE m.type = 'table' "
                                 "AND m.name NOT LIKE 'sqlite%' ORDER BY m.rowid, c.cid");
    QList<EmptyCatalogue::Table> tables;
    while (rows.Step()) {
        const QByteArray name = ToBytes(rows.Text(0));
        if (tables.isEmpty() || tables.last().name != name)
            tables.append({name, {}});
        tables.last().columns.append(ToBytes(rows.Text(1)));
    }
    return tables;
}

} // namespace

void EmptyCatalogue::CloseHandle::operator()(sqlite3* handle) const noexcept
{
    sqlite3_close_v2(handle);
}

EmptyCatalogue::Handle EmptyCatalogue::Make(const QString& path)
{
    const QByteArray name = path.isEmpty() ? QByteArray(":memory:") : SqliteFileName(path);
    sqlite3* raw = nullptr;
    const int result = sqlite3_open_v2(name.constData(), &raw,
                                       SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    Handle handle(raw);
    if (!raw)
        throw RuntimeError(RuntimeError::StoreFailure, u"Falta memória."_qs, path);
    sqlite3_extended_result_codes(raw, 1);
    if (result != SQLITE_OK)
        Failure::ThrowLast(raw);
    // A draft that a power cut spoils is made again, so only its end must reach the disk.
    Run(raw, "PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF");
    Run(raw, Delivered::Schema);
    Run(raw, Delivered::FixedRows);
    return handle;
}

const QList<EmptyCatalogue::Table>& EmptyCatalogue::Tables()
{
    static const QList<Table> tables = ReadTables();
    return tables;
}

qint64 EmptyCatalogue::Run(sqlite3* database, const QByteArray& sql)
{
    if (sqlite3_exec(database, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        Failure::ThrowLast(database);
    return sqlite3_changes64(database);
}

void EmptyCatalogue::RefillFixedTable(sqlite3* database, const QByteArray& table)
{
    const Handle fresh = Make({});
    for (const Table& known : Tables()) {
        if (known.name != table)
            continue;
        const QByteArray columns = known.columns.join(", ");
        Run(database, "DELETE FROM " + table);
        Statement rows(fresh.get(), "SELECT " + columns + " FROM " + table + " ORDER BY ID");
        while (rows.Step()) {
            std::vector<Value> values;
            for (int i = 0; i < rows.ColumnCount(); ++i) {
                if (rows.ColumnKind(i) == Statement::Kind::Whole)
                    values.emplace_back(rows.Whole(i));
                else
                    values.emplace_back(QString::fromUtf8(ToBytes(rows.Text(i))));
            }
            const QByteArray places = QByteArray("?, ").repeated(rows.ColumnCount()).chopped(2);
            Statement insert(database,
                             "INSERT INTO " + table + " (" + columns + ") VALUES (" + places + ")");
            insert.Bind(values);
            insert.Step();
        }
    }
}
