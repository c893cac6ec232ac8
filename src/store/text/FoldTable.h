#pragma once

#include <array>
#include <cstdint>

/// What one code point becomes when letter case is ignored and accents are split off.
struct FoldedCode
{
    /// More accents than a letter of any language carries on a single code point, and as many as
    /// Fold::Letter can hold.
    static constexpr int MaxAccents = 3;

    /// The letter in lower case without its accents; 0 when the code point is an accent itself.
    char32_t base = 0;
    /// The accents in the order of their decomposition; 0 where there is none.
    std::array<char32_t, MaxAccents> accents{};

    bool IsAccent() const noexcept { return base == 0 && accents[0] != 0; }
    bool operator==(const FoldedCode&) const = default;
};

namespace FoldTable {

/// Looks a code point up: Latin letters, signs and combining marks in a table that is filled once
/// from ICU, any other in ICU itself.
FoldedCode Lookup(char32_t code);

/// As Lookup, always from ICU; the table has to agree with it.
FoldedCode LookupInIcu(char32_t code);

/// @return the one code point that two letters side by side are equal to (Hangul syllables, a few
/// Indic vowels), or 0. No Latin letter is part of such a pair.
char32_t ComposeLetters(char32_t first, char32_t second);

/// @return the canonical combining class; accents of one letter are kept in its order, so that the
/// order in which they were typed does not tell. 0 for a letter.
std::uint8_t CombiningClass(char32_t code);

} // namespace FoldTable
