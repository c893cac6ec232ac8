#pragma once

struct sqlite3;

/// The functions and the collation that statements of the dialect call (dialect/Names.h). They are
/// known to this connection only, and nothing that lies in the file may call them.
namespace SqlFunctions {

/// Registers db_like. @throws RuntimeError StoreFailure
void AddLike(sqlite3* database);

/// Registers db_concat and db_add. @throws RuntimeError StoreFailure
void AddText(sqlite3* database);

/// Registers db_cdate, db_day, db_month and db_year. @throws RuntimeError StoreFailure
void AddDates(sqlite3* database);

/// Registers db_integer and db_long. @throws RuntimeError StoreFailure
void AddNumbers(sqlite3* database);

/// Registers the collation db_text. @throws RuntimeError StoreFailure
void AddCollation(sqlite3* database);

/// Registers all of them. @throws RuntimeError StoreFailure
void AddAll(sqlite3* database);

} // namespace SqlFunctions
