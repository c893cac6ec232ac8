#pragma once

struct sqlite3;

/// TRECHO(x) in SQL: the start of a text on one line, fit to be quoted in a message. A catalogue
/// may hold titles as long as a book, and signs that would move the cursor of a terminal.
namespace ExcerptFunction {

/// NULL becomes an empty text. @throws RuntimeError StoreFailure
void AddTo(sqlite3* database);

} // namespace ExcerptFunction
