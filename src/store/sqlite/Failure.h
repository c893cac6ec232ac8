#pragma once

struct sqlite3;

class QString;

/// Failures of SQLite as errors of the program.
namespace Failure {

/// What SQL functions of ours fail with; Throw makes errors of the program's own numbers of them.
inline constexpr char Overflow[] = "Overflow";
inline constexpr char TypeMismatch[] = "Type mismatch";
inline constexpr char DateMismatch[] = "Type mismatch: not a date";

/// Follows what failed where that has undone everything since the batch began.
inline constexpr char16_t Undone[] = u" As alterações desta operação foram desfeitas.";

/// @param code    the extended result code
/// @param words   SQLite's own words
/// @param undone  whether SQLite has undone the whole batch
/// @throws RuntimeError Overflow, TypeMismatch, or StoreFailure with the words and the code
[[noreturn]] void Throw(int code, const QString& words, bool undone = false);

/// Throws what the last call on the connection failed with.
/// @param inBatch  a batch was open before that call
[[noreturn]] void ThrowLast(sqlite3* database, bool inBatch = false);

/// @throws RuntimeError ObjectClosed: the catalogue was asked for something after it was closed
[[noreturn]] void ThrowClosed();

/// @throws RuntimeError StoreFailure: another program deleted a row between its finding and reading
[[noreturn]] void ThrowGone();

} // namespace Failure
