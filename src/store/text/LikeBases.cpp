// Patterns that ask for no accent, matched against bases as they lie there: no letter is taken
// apart.

#include "store/text/Like.h"
#include "store/text/Utf8.h"

#include <algorithm>

namespace {

constexpr std::size_t Nowhere = std::string_view::npos;

bool IsInside(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

Fold::Letter LetterAt(std::string_view bases, std::size_t& at)
{
    const auto byte = static_cast<unsigned char>(bases[at]);
    if (byte < 0x80) {
        ++at;
        return {byte, 0};
    }
    return {Utf8::Next(bases, at), 0};
}

/// @return the place so many letters before another; Nowhere when there are not so many from first
std::size_t Back(std::string_view bases, std::size_t first, std::size_t at, std::size_t letters)
{
    for (; letters > 0; --letters) {
        if (at <= first)
            return Nowhere;
        do {
            --at;
        } while (at > first && IsInside(bases[at]));
    }
    return at;
}

} // namespace

bool Like::AsksForAccents(const Item& item) const
{
    const auto first = m_ranges.begin() + static_cast<std::ptrdiff_t>(item.firstRange);
    // A range goes by the letters without their accents.
    const auto asks = [](const Range& single) { return single.first.accents != 0; };
    return item.letter.accents != 0 ||
           std::any_of(first, first + static_cast<std::ptrdiff_t>(item.singles), asks);
}

/// A long part is left to LongPart, which compares no letter twice.
void Like::ChoosePlain()
{
    m_isPlain = std::all_of(m_parts.begin(), m_parts.end(), [this](const Part& part) {
        return part.size() <= ShortPart &&
               std::none_of(part.begin(), part.end(),
                            [this](const Item& item) { return AsksForAccents(item); });
    });
    if (!m_isPlain)
        return;
    for (const Part& part : m_parts)
        m_runs.push_back(LongestRun(part));
}

/// @return where a part that begins at a place ends; Nowhere when it does not fit there
std::size_t Like::EndOfPart(const Part& part, std::string_view bases, std::size_t at) const
{
    for (const Item& item : part) {
        if (at >= bases.size() || !MatchesItem(item, LetterAt(bases, at)))
            return Nowhere;
    }
    return at;
}

/// @param end  the part has to end there or before
/// @return where a part ends that fits from a place on, at the first place it does; or Nowhere
std::size_t Like::FindPlain(std::size_t part, std::string_view bases, std::size_t at,
                            std::size_t end) const
{
    bases = bases.substr(0, end);
    const ByteSearch& letters = m_runs[part].letters;
    if (letters.Needle().empty()) {
        for (; at <= end; ++at) {
            if (at < end && IsInside(bases[at]))
                continue;
            const std::size_t behind = EndOfPart(m_parts[part], bases, at);
            if (behind != Nowhere)
                return behind;
        }
        return Nowhere;
    }
    for (std::size_t run = letters.Find(bases, at); run != Nowhere;
         run = letters.Find(bases, run + 1)) {
        const std::size_t start = Back(bases, at, run, m_runs[part].before);
        const std::size_t behind =
            start == Nowhere ? Nowhere : EndOfPart(m_parts[part], bases, start);
        if (behind != Nowhere)
            return behind;
    }
    return Nowhere;
}

/// As MatchesRest: each part at the first place it fits, the last at the end.
bool Like::MatchesPlain(std::string_view bases) const
{
    std::size_t at = EndOfPart(m_parts.front(), bases, 0);
    if (at == Nowhere || m_parts.size() == 1)
        return at == bases.size();
    const Part& last = m_parts.back();
    const std::size_t end = Back(bases, at, bases.size(), last.size());
    if (end == Nowhere || EndOfPart(last, bases, end) == Nowhere)
        return false;
    for (std::size_t part = 1; part + 1 < m_parts.size(); ++part) {
        at = FindPlain(part, bases, at, end);
        if (at == Nowhere)
            return false;
    }
    return true;
}

bool Like::MatchesBases(std::string_view bases) const
{
    return m_needle.FoundIn(bases) && (m_needleDecides || MatchesPlain(bases));
}
