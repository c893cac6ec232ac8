#pragma once

#include <cstddef>
#include <cstdint>

/// What melodario-jet says on its standard output and JetReader understands. Whole numbers are
/// little-endian and unsigned unless told; a text inside a frame is its length in bytes (32 bits)
/// and the bytes.
///
/// A frame is its kind (8 bits), its length in bytes without these five (32 bits), its content.
/// The order is Hello, a Table for each of the user's tables, EndOfTables; then for each table that
/// was asked for Begin, its Rows, End; then Done. Failure may come anywhere and is the last.
namespace RowStream {

/// Changes with everything below.
inline constexpr std::uint32_t Version = 1;

/// Longer frames are no frames of ours.
inline constexpr std::uint32_t LargestFrame = 64U * 1024 * 1024;

/// Bytes of one text in the file; the format would allow a thousand million.
inline constexpr std::uint32_t LargestText = 16U * 1024 * 1024;

/// What is sent is never more than this many times the size of the file and the constant below: a
/// damaged file in which many rows lead to the same text ends there.
inline constexpr std::uint64_t LargestGrowth = 8;
inline constexpr std::uint64_t SmallestBound = std::uint64_t{1} << 20U;

enum class Frame : std::uint8_t {
    /// Version (32 bits), the code page of texts of one byte a character (32 bits; 0: unknown).
    Hello = 'H',
    /// Name, number of rows (32 bits), the last number its AutoNumber gave out (32 bits, signed),
    /// name of the AutoNumber column ("" for none), number of columns (32 bits), their names. All
    /// names are UTF-8.
    Table = 'T',
    EndOfTables = 't',
    /// Position among the tables asked for, from 0 (32 bits).
    Begin = 'B',
    /// A field for each column asked for, in that order.
    Row = 'R',
    End = 'E',
    Done = 'D',
    /// A Trouble (8 bits) and the name that it is about, UTF-8.
    Failure = 'F',
};

enum class Field : std::uint8_t {
    Null = 0,
    Whole = 1,     ///< 32 bits, signed
    WideText = 2,  ///< UTF-16, little-endian
    PlainText = 3, ///< one byte a character
    Date = 4,      ///< a double, little-endian: days since 1899-12-30, the time as fraction
    Other = 5,     ///< of a type that no catalogue has; without content
};

enum class Trouble : std::uint8_t {
    Unreadable = 1,    ///< no file of this format, or one that the library does not read
    MissingTable = 2,  ///< the table's name follows
    MissingColumn = 3, ///< table.column follows
    Damaged = 4,       ///< what is wrong follows, in English
};

} // namespace RowStream
