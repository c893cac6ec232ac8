#include "store/text/Like.h"

#include "store/text/LongPart.h"

#include <algorithm>
#include <iterator>

namespace {

bool IsSign(const Fold::Letter& letter, char32_t sign)
{
    return letter.base == sign && letter.accents == 0;
}

bool LetterMatches(const Fold::Letter& pattern, const Fold::Letter& letter)
{
    return pattern.base == letter.base &&
           (pattern.accents == 0 || pattern.accents == letter.accents);
}

bool IsBefore(const Fold::Letter& a, const Fold::Letter& b)
{
    return a.base != b.base ? a.base < b.base : a.accents < b.accents;
}

/// The texts of a table are matched one after the other: their memory is kept in between.
std::string& ScratchBases()
{
    thread_local std::string bases;
    bases.clear();
    return bases;
}

} // namespace

Like::Like(std::string_view pattern)
{
    Compile(Fold::Letters(pattern));
    ChooseNeedle();
    ChooseRun();
    ChoosePlain();
}

void Like::Compile(const std::vector<Fold::Letter>& pattern)
{
    // Looked for once: a pattern of thousands of unclosed brackets is not searched for each.
    const auto isClose = [](const Fold::Letter& letter) { return IsSign(letter, U']'); };
    const auto lastClose = static_cast<std::size_t>(
        std::find_if(pattern.rbegin(), pattern.rend(), isClose).base() - pattern.begin());
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const Fold::Letter& letter = pattern[at];
        if (IsSign(letter, U'%')) {
            // Several in a row are one: an empty part would only cost time.
            if (m_parts.size() == 1 || !m_parts.back().empty())
                m_parts.emplace_back();
        } else if (IsSign(letter, U'_')) {
            m_parts.back().push_back({Item::One, {}, 0, 0});
        } else if (IsSign(letter, U'[') && at < lastClose) {
            at = CompileSet(pattern, at);
        } else {
            m_parts.back().push_back({Item::Exact, letter, 0, 0});
        }
    }
}

/// @param at  position of a `[` that a `]` follows somewhere
/// @return the position of that `]`
std::size_t Like::CompileSet(const std::vector<Fold::Letter>& pattern, std::size_t at)
{
    std::size_t end = at;
    while (end < pattern.size() && !IsSign(pattern[end], U']'))
        ++end;
    std::size_t member = at + 1;
    if (member == end)
        return end;
    Item item{Item::Set, {}, m_ranges.size(), 0};
    std::vector<Range> members;
    if (IsSign(pattern[member], U'!') && member + 1 < end) {
        item.kind = Item::NotSet;
        ++member;
    }
    while (member < end) {
        const bool isRange = member + 2 < end && IsSign(pattern[member + 1], U'-');
        members.emplace_back(pattern[member], pattern[isRange ? member + 2 : member]);
        member += isRange ? 3 : 1;
    }
    AddMembers(item, std::move(members));
    m_parts.back().push_back(item);
    return end;
}

/// Keeps the members of a set where InSet finds them without looking at each: single letters first,
/// in order, then the ranges in order and apart from each other.
void Like::AddMembers(Item& set, std::vector<Range> members)
{
    const auto ranges = std::partition(members.begin(), members.end(), [](const Range& member) {
        return member.first == member.second;
    });
    std::sort(members.begin(), ranges,
              [](const Range& a, const Range& b) { return IsBefore(a.first, b.first); });
    m_ranges.insert(m_ranges.end(), members.begin(), ranges);
    set.singles = m_ranges.size() - set.firstRange;
    std::sort(ranges, members.end(),
              [](const Range& a, const Range& b) { return a.first.base < b.first.base; });
    for (auto range = ranges; range != members.end(); ++range) {
        const bool isTurned = range->second.base < range->first.base;
        const bool hasOneBefore = m_ranges.size() > set.firstRange + set.singles;
        if (isTurned)
            continue;
        if (hasOneBefore && range->first.base <= m_ranges.back().second.base)
            m_ranges.back().second.base = std::max(m_ranges.back().second.base, range->second.base);
        else
            m_ranges.push_back(*range);
    }
    set.rangeCount = m_ranges.size() - set.firstRange;
}

Like::Run Like::LongestRun(const Part& part) const
{
    std::string longest;
    std::size_t before = 0;
    std::string run;
    std::size_t start = 0;
    for (std::size_t i = 0; i < part.size(); ++i) {
        if (part[i].kind == Item::Exact) {
            Fold::AppendBase(run, part[i].letter);
        } else {
            run.clear();
            start = i + 1;
        }
        if (run.size() > longest.size()) {
            longest = run;
            before = start;
        }
    }
    return {ByteSearch(std::move(longest)), before};
}

/// The needle is the longest run of letters; it decides alone in `%letters%` without accents.
void Like::ChooseNeedle()
{
    ByteSearch longest{{}};
    for (const Part& part : m_parts) {
        Run run = LongestRun(part);
        if (run.letters.Needle().size() > longest.Needle().size())
            longest = std::move(run.letters);
    }
    const auto isPlain = [](const Item& item) {
        return item.kind == Item::Exact && item.letter.accents == 0;
    };
    m_needleDecides =
        m_parts.size() <= 3 && m_parts.size() > 1 && m_parts.front().empty() &&
        m_parts.back().empty() &&
        (m_parts.size() == 2 || std::all_of(m_parts[1].begin(), m_parts[1].end(), isPlain));
    m_needle = std::move(longest);
    m_isStart = m_parts.size() == 2 && !m_parts.front().empty() && m_parts.back().empty() &&
                std::all_of(m_parts.front().begin(), m_parts.front().end(),
                            [](const Item& item) { return item.kind == Item::Exact; });
}

/// Recognises `%letters%`, with accents or without. A long one is left to FindPart, which never
/// compares a letter twice.
void Like::ChooseRun()
{
    constexpr std::size_t longest = 256;
    m_isRun = m_parts.size() == 3 && m_parts[1].size() <= longest && m_parts.front().empty() &&
              m_parts.back().empty() &&
              std::all_of(m_parts[1].begin(), m_parts[1].end(),
                          [](const Item& item) { return item.kind == Item::Exact; });
    if (!m_isRun)
        return;
    std::string bases;
    for (const Item& item : m_parts[1]) {
        if (item.letter.accents != 0)
            m_runAccents.push_back({bases.size(), item.letter.accents});
        Fold::AppendBase(bases, item.letter);
    }
}

bool Like::InSet(const Item& item, const Fold::Letter& letter) const
{
    const auto first = m_ranges.begin() + static_cast<std::ptrdiff_t>(item.firstRange);
    const auto ranges = first + static_cast<std::ptrdiff_t>(item.singles);
    const auto last = first + static_cast<std::ptrdiff_t>(item.rangeCount);
    const auto isSingle = [first, ranges](const Fold::Letter& wanted) {
        const auto found = std::lower_bound(first, ranges, wanted,
                                            [](const Range& member, const Fold::Letter& other) {
                                                return IsBefore(member.first, other);
                                            });
        return found != ranges && found->first == wanted;
    };
    if (isSingle({letter.base, 0}) || (letter.accents != 0 && isSingle(letter)))
        return true;
    const auto behind =
        std::upper_bound(ranges, last, letter.base,
                         [](char32_t base, const Range& range) { return base < range.first.base; });
    return behind != ranges && letter.base <= std::prev(behind)->second.base;
}

bool Like::MatchesItem(const Item& item, const Fold::Letter& letter) const
{
    switch (item.kind) {
    case Item::One:
        return true;
    case Item::Exact:
        return LetterMatches(item.letter, letter);
    case Item::Set:
        return InSet(item, letter);
    case Item::NotSet:
        return !InSet(item, letter);
    }
    return false;
}

bool Like::MatchesAt(const Part& part, const Fold::Letter* letters) const
{
    return std::equal(
        part.begin(), part.end(), letters,
        [this](const Item& item, const Fold::Letter& letter) { return MatchesItem(item, letter); });
}

/// @return where a part fits first, count when it fits nowhere
std::size_t Like::FindPart(const Part& part, const Fold::Letter* letters, std::size_t count) const
{
    if (part.size() > count)
        return count;
    if (part.size() <= ShortPart) {
        for (std::size_t at = 0; at + part.size() <= count; ++at) {
            if (MatchesAt(part, letters + at))
                return at;
        }
        return count;
    }
    LongPart all(part.size());
    for (std::size_t i = 0; i < part.size(); ++i) {
        if (part[i].kind == Item::One)
            all.AddAny(i);
        else if (part[i].kind == Item::Exact)
            all.AddExact(i, part[i].letter.base);
        else
            all.AddOther(i);
    }
    return all.Find(letters, count, [this, &part](std::size_t item, const Fold::Letter& letter) {
        return MatchesItem(part[item], letter);
    });
}

/// Matches the part in front of the first `%`, reading no further than it has to.
bool Like::MatchesStart(Fold::Reader& reader) const
{
    return std::all_of(m_parts.front().begin(), m_parts.front().end(), [&](const Item& item) {
        Fold::Letter letter;
        return reader.Next(letter) && MatchesItem(item, letter);
    });
}

/// Matches the parts behind the first `%`: each at the first place it fits, the last at the end.
/// Taking the first place is never wrong, because a later one leaves less text for the others.
bool Like::MatchesRest(const Fold::Letter* letters, std::size_t count) const
{
    const Part& last = m_parts.back();
    if (count < last.size())
        return false;
    const std::size_t end = count - last.size();
    std::size_t at = 0;
    for (std::size_t i = 1; i + 1 < m_parts.size(); ++i) {
        const Part& part = m_parts[i];
        const std::size_t place = FindPart(part, letters + at, end - at);
        if (place == end - at)
            return false;
        at += place + part.size();
    }
    return MatchesAt(last, letters + end);
}

bool Like::MatchesLetters(const std::vector<Fold::Letter>& letters) const
{
    const Part& start = m_parts.front();
    if (letters.size() < start.size() || !MatchesAt(start, letters.data()))
        return false;
    if (m_parts.size() == 1)
        return letters.size() == start.size();
    return MatchesRest(letters.data() + start.size(), letters.size() - start.size());
}

/// Tries each letter that carries the first of the pattern's accents: texts have few.
bool Like::MatchesRun(std::string_view bases, const std::vector<Fold::Accented>& accented) const
{
    if (m_runAccents.empty())
        return MayMatch(bases);
    if (!MayMatch(bases))
        return false;
    const std::size_t offset = m_runAccents.front().at;
    const std::string_view needle = m_needle.Needle();
    for (auto first = accented.begin(); first != accented.end(); ++first) {
        if (first->accents != m_runAccents.front().accents || first->at < offset ||
            bases.substr(first->at - offset, needle.size()) != needle)
            continue;
        const std::size_t place = first->at - offset;
        const auto has = [&](const Fold::Accented& want) {
            const auto found = std::lower_bound(
                first, accented.end(), place + want.at,
                [](const Fold::Accented& letter, std::size_t at) { return letter.at < at; });
            return found != accented.end() && found->at == place + want.at &&
                   found->accents == want.accents;
        };
        if (std::all_of(m_runAccents.begin(), m_runAccents.end(), has))
            return true;
    }
    return false;
}

bool Like::MatchesFully(std::string_view text) const
{
    Fold::Reader reader(text);
    if (!MatchesStart(reader))
        return false;
    if (m_parts.size() == 1)
        return reader.Position() == text.size();
    if (m_parts.size() == 2 && m_parts.back().empty())
        return true;
    const std::vector<Fold::Letter> letters = Fold::Letters(text.substr(reader.Position()));
    return MatchesRest(letters.data(), letters.size());
}

bool Like::Matches(std::string_view text) const
{
    // A start to compare with is cheaper than the bases of a long text.
    if (!m_parts.front().empty())
        return MatchesFully(text);
    if (m_needle.Needle().empty())
        return m_needleDecides || MatchesFully(text);
    std::string& bases = ScratchBases();
    Fold::AppendBases(bases, text);
    return Matches(text, bases);
}

bool Like::Matches(std::string_view text, std::string_view bases) const
{
    if (IsDecidedByBases())
        return MatchesBases(bases);
    if (!m_parts.front().empty())
        return MatchesFully(text);
    if (!m_needle.FoundIn(bases))
        return false;
    if (!m_isRun)
        return MatchesFully(text);
    thread_local std::vector<Fold::Accented> accented;
    accented.clear();
    Fold::AppendAccented(accented, text);
    return MatchesRun(bases, accented);
}

bool Like::Matches(std::string_view bases, const std::vector<Fold::Accented>& accented) const
{
    if (IsDecidedByBases())
        return MatchesBases(bases);
    if (m_isRun)
        return MatchesRun(bases, accented);
    return MayMatch(bases) && MatchesLetters(Fold::Letters(bases, accented));
}
