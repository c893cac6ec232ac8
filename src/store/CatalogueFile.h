#pragma once

#include <QByteArrayView>
#include <QString>

#include <vector>

class Schema;
struct Table;
struct sqlite3;

/// What has to be right about a catalogue before it counts as open.
namespace CatalogueFile {

/// @return the path in a provider string: from "Data Source=" to the last ";User Id=", so that it
/// may hold a ';'; to the end where there is none.
/// @throws RuntimeError StoreFailure without a path
QString PathFrom(const QString& connectionString);

/// Bytes at the beginning of a file that tell what it is.
inline constexpr qint64 HeaderLength = 100;

/// @param header  the first bytes of a file
/// @return true when it is a catalogue in the older format, which has to be converted
bool IsOlderFormat(QByteArrayView header);

/// Looks at the first bytes of a file, before SQLite does.
/// @throws RuntimeError StoreFailure when there is no such file or it cannot be read, is empty, in
/// the older format or anything else than a SQLite database
void CheckHeader(const QString& path);

/// Checks that the file is as long as the database in it, once SQLite has undone what a crash may
/// have left: SQLite reads zeros where a part of the last page is missing.
/// @throws RuntimeError StoreFailure
void CheckLength(sqlite3* database, const QString& path);

/// @return the tables and columns of the database. @throws RuntimeError StoreFailure
Schema ReadSchema(sqlite3* database);

/// @return the seven tables as they are in a catalogue that has them, always in the same order
std::vector<Table> NeededFrom(const Schema& schema);

/// Checks that the seven tables are there with their columns, and that each can be read.
/// @throws RuntimeError StoreFailure
void CheckTables(sqlite3* database, const Schema& schema);

} // namespace CatalogueFile
