#pragma once

/// What the writer of the dialect calls and the connection registers with SQLite.
namespace Names {

/// The one collation of texts; named in statements, never in the schema, because other tools that
/// read the catalogue do not know it.
inline constexpr char Collation[] = "db_text";

inline constexpr char Like[] = "db_like";       ///< (text, pattern): 1, 0 or NULL
inline constexpr char Concat[] = "db_concat";   ///< (a, b, ...): joined texts, NULL is empty
inline constexpr char Add[] = "db_add";         ///< (a, b): numbers add, texts join, NULL is NULL
inline constexpr char Cdate[] = "db_cdate";     ///< (text): yyyy-mm-dd, an error for no date
inline constexpr char Day[] = "db_day";         ///< (date): number without padding, NULL for NULL
inline constexpr char Month[] = "db_month";     ///< as Day
inline constexpr char Year[] = "db_year";       ///< as Day
inline constexpr char Integer[] = "db_integer"; ///< (x): x as 16 bits, error "Overflow" beyond
inline constexpr char Long[] = "db_long";       ///< (x): x as 32 bits, error "Overflow" beyond

} // namespace Names
