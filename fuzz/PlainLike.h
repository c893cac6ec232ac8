#pragma once

#include "store/text/Fold.h"

#include <vector>

/// LIKE as its rules read, with a table of all answers instead of any cleverness: whether the first
/// i signs of the pattern stand for the first j letters of the text. It shares the letters with the
/// fast matcher, nothing else.
namespace Fuzz {

class PlainLike
{
public:
    explicit PlainLike(std::string_view pattern)
        : m_pattern(Fold::Letters(pattern))
    {
        for (std::size_t at = 0; at < m_pattern.size();)
            at = ReadSign(at);
    }

    bool Matches(std::string_view text) const
    {
        const std::vector<Fold::Letter> letters = Fold::Letters(text);
        std::vector<bool> reached(letters.size() + 1, false);
        reached[0] = true;
        for (const Sign& sign : m_signs) {
            std::vector<bool> next(letters.size() + 1, false);
            for (std::size_t j = 0; j <= letters.size(); ++j) {
                if (sign.kind == Sign::AnyRun)
                    next[j] = reached[j] || (j > 0 && next[j - 1]);
                else
                    next[j] = j > 0 && reached[j - 1] && Fits(sign, letters[j - 1]);
            }
            reached = std::move(next);
        }
        return reached.back();
    }

private:
    struct Sign
    {
        enum { AnyRun, AnyOne, Members } kind;
        bool outside = false;
        std::vector<std::pair<Fold::Letter, Fold::Letter>> members;
    };

    bool Is(std::size_t at, char32_t sign) const { return m_pattern[at] == Fold::Letter{sign, 0}; }

    /// @return where the next sign begins
    std::size_t ReadSign(std::size_t at)
    {
        if (Is(at, U'%')) {
            m_signs.push_back({Sign::AnyRun, false, {}});
            return at + 1;
        }
        if (Is(at, U'_')) {
            m_signs.push_back({Sign::AnyOne, false, {}});
            return at + 1;
        }
        std::size_t end = at + 1;
        while (end < m_pattern.size() && !Is(end, U']'))
            ++end;
        if (!Is(at, U'[') || end == m_pattern.size()) {
            m_signs.push_back({Sign::Members, false, {{m_pattern[at], m_pattern[at]}}});
            return at + 1;
        }
        if (end > at + 1)
            ReadSet(at + 1, end);
        return end + 1;
    }

    void ReadSet(std::size_t at, std::size_t end)
    {
        Sign set{Sign::Members, false, {}};
        if (Is(at, U'!') && end - at > 1) {
            set.outside = true;
            ++at;
        }
        while (at < end) {
            const bool range = end - at >= 3 && Is(at + 1, U'-');
            set.members.emplace_back(m_pattern[at], m_pattern[range ? at + 2 : at]);
            at += range ? 3 : 1;
        }
        m_signs.push_back(std::move(set));
    }

    static bool Fits(const Sign& sign, const Fold::Letter& letter)
    {
        if (sign.kind == Sign::AnyOne)
            return true;
        bool in = false;
        for (const auto& [first, last] : sign.members) {
            if (first == last)
                in = in || (first.base == letter.base &&
                            (first.accents == 0 || first.accents == letter.accents));
            else
                in = in || (first.base <= letter.base && letter.base <= last.base);
        }
        return in != sign.outside;
    }

    std::vector<Fold::Letter> m_pattern;
    std::vector<Sign> m_signs;
};

} // namespace Fuzz
