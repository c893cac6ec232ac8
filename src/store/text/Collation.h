#pragma once

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

private:
    /// The place of an ASCII character among the others; letters of either case share one.
    static constexpr unsigned char NoRank = 0;

    void RankAscii();

    UCollator* m_collator = nullptr;
    unsigned char m_ranks[256] = {};
};
