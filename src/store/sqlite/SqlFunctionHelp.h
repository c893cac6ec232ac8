#pragma once

#include <QString>

#include <string_view>

#include <sqlite3.h>

/// What the SQL functions share. Only for their own sources: it brings SQLite's header along.
namespace SqlFunctionHelp {

using Function = void (*)(sqlite3_context*, int, sqlite3_value**);

/// @param arity  number of arguments, -1 for any
/// @throws RuntimeError StoreFailure
void Add(sqlite3* database, const char* name, int arity, Function function);

/// @return the value as UTF-8, valid until the function returns; empty for NULL.
std::string_view Utf8(sqlite3_value* value);

bool IsNull(sqlite3_value* value);

/// Text or a blob.
bool IsText(sqlite3_value* value);

/// @return the number that the value is or, as a text, denotes.
/// @throws RuntimeError TypeMismatch
double Number(sqlite3_value* value);

/// @return the value as the dialect joins it to a text: NULL is empty, a fraction has its comma.
QString Text(sqlite3_value* value);

void ResultText(sqlite3_context* context, std::string_view utf8);

/// Runs the body of a function: whatever it throws becomes the statement's failure, because
/// SQLite is C and lets no exception through.
void Guard(sqlite3_context* context, void (*body)(sqlite3_context*, sqlite3_value**),
           sqlite3_value** arguments);

/// A Function made of a body that may throw.
template <auto Body>
void Guarded(sqlite3_context* context, int, sqlite3_value** arguments)
{
    Guard(context, Body, arguments);
}

} // namespace SqlFunctionHelp
