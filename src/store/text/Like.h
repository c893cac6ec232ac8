#pragma once

#include "store/text/ByteSearch.h"
#include "store/text/Fold.h"

#include <string_view>
#include <utility>
#include <vector>

/// One pattern of LIKE, compiled once and matched against many texts.
///
/// `%` stands for any run, `_` for one character, `[abc]`, `[a-z]` and `[!abc]` for one character
/// of a set or outside it, `[%]` for the sign itself; `[]` stands for nothing and an unclosed `[`
/// for itself. Letter case never counts. A letter without an accent matches it with any accent, a
/// letter with one matches only that. A range goes by the letters without their accents. Blanks
/// count everywhere.
///
/// Matching takes time in proportion to text times the longest part between two `%`, divided by 64
/// where that part is long, whatever the pattern; nothing is tried twice.
class Like
{
public:
    /// @param pattern  UTF-8 of any length
    explicit Like(std::string_view pattern);

    bool Matches(std::string_view text) const;

    /// As Matches, for a text whose Fold::Bases are at hand: the text itself is only looked at when
    /// they do not decide.
    bool Matches(std::string_view text, std::string_view bases) const;

    /// As Matches, for a text of which only its bases and accented letters are at hand.
    bool Matches(std::string_view bases, const std::vector<Fold::Accented>& accented) const;

    /// @return false for a text that cannot match, whatever its accents are.
    bool MayMatch(std::string_view bases) const noexcept { return m_needle.FoundIn(bases); }

    /// @return bases that every match contains.
    const ByteSearch& Needle() const noexcept { return m_needle; }

    /// @return true when every text that contains the needle matches.
    bool IsDecidedByNeedle() const noexcept { return m_needleDecides; }

    /// @return true for `letters%`: what matches begins with the needle.
    bool IsStart() const noexcept { return m_isStart; }

    /// @return true when every text that begins with the needle matches.
    bool IsDecidedByStart() const noexcept { return m_isStart && m_isPlain; }

    /// @return true when MatchesBases tells all: no accent is asked for.
    bool IsDecidedByBases() const noexcept { return m_needleDecides || m_isPlain; }

    /// As Matches, for a pattern that bases decide.
    bool MatchesBases(std::string_view bases) const;

private:
    /// What one character of a text is compared with.
    struct Item
    {
        enum Kind { One, Exact, Set, NotSet };

        Kind kind = One;
        Fold::Letter letter;        ///< of Exact
        std::size_t firstRange = 0; ///< of sets: its part of m_ranges
        std::size_t rangeCount = 0;
        std::size_t singles = 0; ///< how many of them, the first ones, are one letter
    };

    /// A member of a set: from letter to letter, or one letter twice.
    using Range = std::pair<Fold::Letter, Fold::Letter>;

    /// The items between two `%`.
    using Part = std::vector<Item>;

    /// Where to look for a part without accents: its longest run of letters, and how many items
    /// stand before it.
    struct Run
    {
        ByteSearch letters{{}};
        std::size_t before = 0;
    };

    /// Parts of so many items are tried at one place after the other.
    static constexpr std::size_t ShortPart = 64;

    void Compile(const std::vector<Fold::Letter>& pattern);
    std::size_t CompileSet(const std::vector<Fold::Letter>& pattern, std::size_t at);
    void AddMembers(Item& set, std::vector<Range> members);
    void ChooseNeedle();
    void ChoosePlain();
    Run LongestRun(const Part& part) const;
    bool AsksForAccents(const Item& item) const;
    std::size_t EndOfPart(const Part& part, std::string_view bases, std::size_t at) const;
    std::size_t FindPlain(std::size_t part, std::string_view bases, std::size_t at,
                          std::size_t end) const;
    bool MatchesPlain(std::string_view bases) const;

    bool MatchesItem(const Item& item, const Fold::Letter& letter) const;
    bool InSet(const Item& item, const Fold::Letter& letter) const;
    bool MatchesAt(const Part& part, const Fold::Letter* letters) const;
    std::size_t FindPart(const Part& part, const Fold::Letter* letters, std::size_t count) const;
    bool MatchesStart(Fold::Reader& reader) const;
    bool MatchesRest(const Fold::Letter* letters, std::size_t count) const;
    bool MatchesLetters(const std::vector<Fold::Letter>& letters) const;
    bool MatchesRun(std::string_view bases, const std::vector<Fold::Accented>& accented) const;
    void ChooseRun();
    bool MatchesFully(std::string_view text) const;

    std::vector<Part> m_parts{Part()};
    std::vector<Range> m_ranges;
    ByteSearch m_needle{{}};      ///< bases that every match contains
    bool m_needleDecides = false; ///< every text that contains them matches
    bool m_isStart = false;       ///< the pattern is `letters%`, with accents or without
    bool m_isPlain = false;       ///< no accent is asked for, and no part is long
    std::vector<Run> m_runs;      ///< of each part, where it is plain
    bool m_isRun = false;         ///< the pattern is `%letters%`: the needle and these accents
    std::vector<Fold::Accented> m_runAccents;
};
