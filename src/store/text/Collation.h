#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

struct UCollator;

/// The one order of texts in the catalogue: Brazilian Portuguese, secondary strength. Letter case
/// does not count, accents, blanks and signs do.
class Collation
{
public:
    Collation();
    ~Collation();
    Collation(const Collation&) = delete;
    Collation& operator=(const Collation&) = delete;

    /// @param a, b  UTF-8
    /// @return below, equal to or above 0
    int Compare(std::string_view a, std::string_view b) const;

    /// As Compare, always through ICU; Compare has to agree with it.
    int CompareInIcu(std::string_view a, std::string_view b) const;

    /// Appends what orders a text by its letters alone, a byte each: of two texts whose letters
    /// differ, the one with the lower bytes comes first. Where the letters are the same, accents
    /// may still tell the texts apart.
    /// @return false for a text whose order only ICU knows; out is then of no use
    bool AppendLetters(std::string& out, std::string_view text) const;

    /// @return a number that texts share which Compare finds equal; of long texts only the
    /// beginning
    ///         counts. @throws RuntimeError StoreFailure
    std::size_t HashOf(std::string_view text) const;

    /// @return the one that the whole program shares. @throws RuntimeError StoreFailure
    static const Collation& Shared();

private:
    /// The place of an ASCII character among the others; letters of either case share one.
    static constexpr unsigned char NoRank = 0;

    /// The accented letters that Portuguese and its neighbours are written with.
    static constexpr char32_t LatinStart = 0xC0;
    static constexpr char32_t LatinEnd = 0x180;

    void RankAscii();
    void RankLatin();

    UCollator* m_collator = nullptr;
    unsigned char m_ranks[256] = {};
    /// Of letters that differ by accents alone from an ASCII letter, that letter's rank.
    std::array<unsigned char, LatinEnd - LatinStart> m_latinRanks{};
};
