#pragma once

#include <QString>

class Schema;
struct sqlite3;

/// What has to be right about a catalogue before it counts as open.
namespace CatalogueFile {

/// @return the path in a provider string: from "Data Source=" to the last ";User Id=", so that it
/// may hold a ';'; to the end where there is none.
/// @throws RuntimeError StoreFailure without a path
QString PathFrom(const QString& connectionString);

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

/// Checks that the seven tables are there with their columns, and that each can be read.
/// @throws RuntimeError StoreFailure
void CheckTables(sqlite3* database, const Schema& schema);

} // namespace CatalogueFile
