#pragma once

#include <QByteArray>
#include <QList>

#include <memory>

struct sqlite3;

/// A catalogue as it is delivered, without songs: the measure of every other one.
namespace EmptyCatalogue {

struct CloseHandle
{
    void operator()(sqlite3* handle) const noexcept;
};
using Handle = std::unique_ptr<sqlite3, CloseHandle>;

struct Table
{
    QByteArray name;
    QList<QByteArray> columns; ///< in the order of the schema
};

/// Makes a catalogue. @param path  where no file is; empty for one in memory
/// @throws RuntimeError StoreFailure
Handle Make(const QString& path);

/// @return the seven tables of a catalogue. @throws RuntimeError StoreFailure
const QList<Table>& Tables();

/// Runs statements that give no rows. @return how many rows the last one changed
/// @throws RuntimeError StoreFailure
qint64 Run(sqlite3* database, const QByteArray& sql);

/// Puts the delivered rows into TOM or VARIACAO, in place of what is there.
/// @throws RuntimeError StoreFailure
void RefillFixedTable(sqlite3* database, const QByteArray& table);

} // namespace EmptyCatalogue
