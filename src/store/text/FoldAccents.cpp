// The accents of a text, kept apart from its bases.

#include "store/text/Fold.h"
#include "store/text/Utf8.h"

#include <array>
#include <cstring>

namespace {

constexpr std::size_t WordSize = sizeof(std::uint64_t);
constexpr std::uint64_t HighBits = 0x8080808080808080u;

bool IsAscii(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
}

/// @return the place of the first byte from a place on that is not ASCII; the end when all are.
std::size_t EndOfAscii(std::string_view text, std::size_t at)
{
    for (; at + WordSize <= text.size(); at += WordSize) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + at, WordSize);
        if ((word & HighBits) != 0)
            break;
    }
    while (at < text.size() && IsAscii(text[at]))
        ++at;
    return at;
}

std::size_t Utf8Length(char32_t code)
{
    if (code < 0x80)
        return 1;
    if (code < 0x800)
        return 2;
    return code < 0x10000 ? 3 : 4;
}

/// Latin letters and signs of two bytes, up to the first combining accent.
constexpr char32_t LatinStart = 0x80;
constexpr char32_t LatinEnd = 0x0300;
constexpr unsigned char FirstLead = 0xC2;
constexpr unsigned char LastLead = 0xCB;
constexpr std::size_t LatinLength = 2;

/// What such a letter is where no accent follows it.
struct LatinLetter
{
    std::uint64_t accents = 0;
    std::size_t baseLength = 0; ///< in UTF-8
};

using LatinLetters = std::array<LatinLetter, LatinEnd - LatinStart>;

LatinLetters MakeLatinLetters()
{
    LatinLetters letters;
    for (char32_t code = LatinStart; code < LatinEnd; ++code) {
        std::string text;
        Utf8::Append(text, code);
        Fold::Letter letter;
        Fold::Reader(text).Next(letter);
        letters[code - LatinStart] = {letter.accents, Utf8Length(letter.base)};
    }
    return letters;
}

/// @return the letter at a place that stands for itself, as nearly all do that are not ASCII;
///         nullptr where it has to be read with what follows it
const LatinLetter* LatinAt(std::string_view text, std::size_t at)
{
    static const LatinLetters letters = MakeLatinLetters();
    const std::size_t behind = at + LatinLength;
    if (behind > text.size() || (behind < text.size() && !IsAscii(text[behind])))
        return nullptr;
    const auto lead = static_cast<unsigned char>(text[at]);
    const auto trail = static_cast<unsigned char>(text[at + 1]);
    if (lead < FirstLead || lead > LastLead || (trail & 0xC0) != 0x80)
        return nullptr;
    return &letters[((static_cast<std::size_t>(lead) & 0x1F) << 6) + (trail & 0x3F) - LatinStart];
}

} // namespace

void Fold::AppendAccented(std::vector<Accented>& out, std::string_view text)
{
    std::size_t at = 0;
    std::size_t to = 0; // in the bases
    while (at < text.size()) {
        // Letters in ASCII are plain, but for the last one before something else: that may be an
        // accent on it.
        const std::size_t other = EndOfAscii(text, at);
        if (const LatinLetter* const latin = LatinAt(text, other)) {
            to += other - at;
            if (latin->accents != 0)
                out.push_back({to, latin->accents});
            to += latin->baseLength;
            at = other + LatinLength;
            continue;
        }
        const std::size_t plain = other < text.size() && other > at ? other - 1 : other;
        to += plain - at;
        at = plain;
        if (at >= text.size())
            return;
        Reader reader(text.substr(at));
        Letter letter;
        reader.Next(letter);
        if (letter.accents != 0)
            out.push_back({to, letter.accents});
        to += Utf8Length(letter.base);
        at += reader.Position();
    }
}

std::vector<Fold::Letter> Fold::Letters(std::string_view bases,
                                        const std::vector<Accented>& accented)
{
    std::vector<Letter> letters;
    letters.reserve(bases.size());
    auto next = accented.begin();
    for (std::size_t at = 0; at < bases.size();) {
        const std::size_t begin = at;
        Letter letter;
        letter.base =
            IsAscii(bases[at]) ? static_cast<char32_t>(bases[at++]) : Utf8::Next(bases, at);
        if (next != accented.end() && next->at == begin)
            letter.accents = (next++)->accents;
        letters.push_back(letter);
    }
    return letters;
}
