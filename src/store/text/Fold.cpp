#include "store/text/Fold.h"

#include "store/text/FoldTable.h"
#include "store/text/Utf8.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr std::size_t WordSize = sizeof(std::uint64_t);
constexpr std::uint64_t HighBits = 0x8080808080808080u;
constexpr std::uint64_t Ones = 0x0101010101010101u;
constexpr int AccentBits = 21;
/// Latin and the accents on it end here; what follows in AppendBases needs the reader.
constexpr char32_t LatinEnd = 0x0370;

bool IsAscii(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
}

char LowerAscii(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

/// Lowers eight ASCII letters at once: a byte gets bit 5 when it lies between 'A' and 'Z'. No sum
/// carries into the next byte, since each byte is below 0x80.
std::uint64_t LowerAsciiWord(std::uint64_t word)
{
    const std::uint64_t fromA = word + Ones * (0x80 - 'A');
    const std::uint64_t aboveZ = word + Ones * (0x80 - 'Z' - 1);
    return word + (((fromA & ~aboveZ) & HighBits) >> 2);
}

/// @return the length in bytes of the run of ASCII at the start of text.
std::size_t AsciiRun(std::string_view text)
{
    std::size_t at = 0;
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

void AppendLowerAscii(std::string& out, std::string_view text)
{
    std::size_t at = out.size();
    out.append(text);
    for (; at + WordSize <= out.size(); at += WordSize) {
        std::uint64_t word = 0;
        std::memcpy(&word, out.data() + at, WordSize);
        word = LowerAsciiWord(word);
        std::memcpy(out.data() + at, &word, WordSize);
    }
    for (; at < out.size(); ++at)
        out[at] = LowerAscii(out[at]);
}

/// The accents of one letter in canonical order: by class, and as they came within a class.
class Accents
{
public:
    void Add(const FoldedCode& code)
    {
        for (const char32_t accent : code.accents) {
            if (accent != 0)
                Insert(accent);
        }
    }

    std::uint64_t Packed() const
    {
        std::uint64_t packed = 0;
        for (std::size_t i = 0; i < m_count; ++i)
            packed = (packed << AccentBits) | m_codes[i];
        return packed;
    }

private:
    void Insert(char32_t accent)
    {
        const std::uint8_t order = FoldTable::CombiningClass(accent);
        std::size_t place = m_count;
        while (place > 0 && m_orders[place - 1] > order)
            --place;
        // A fourth accent cannot be told: nobody writes one, and any tower of them ends here.
        if (place == m_codes.size())
            return;
        m_count = std::min(m_count + 1, m_codes.size());
        for (std::size_t i = m_count - 1; i > place; --i) {
            m_codes[i] = m_codes[i - 1];
            m_orders[i] = m_orders[i - 1];
        }
        m_codes[place] = accent;
        m_orders[place] = order;
    }

    std::array<char32_t, FoldedCode::MaxAccents> m_codes{};
    std::array<std::uint8_t, FoldedCode::MaxAccents> m_orders{};
    std::size_t m_count = 0;
};

} // namespace

bool Fold::Reader::PlainNext(Letter& letter)
{
    // An ASCII character in front of another one (or of the end) carries no accent.
    if (!IsAscii(m_text[m_at]) || (m_at + 1 < m_text.size() && !IsAscii(m_text[m_at + 1])))
        return false;
    letter = {static_cast<char32_t>(LowerAscii(m_text[m_at])), 0};
    ++m_at;
    return true;
}

bool Fold::Reader::Next(Letter& letter)
{
    if (m_at >= m_text.size())
        return false;
    if (PlainNext(letter))
        return true;
    char32_t code = Utf8::Next(m_text, m_at);
    FoldedCode folded = FoldTable::Lookup(code);
    Accents accents;
    if (folded.IsAccent()) {
        // Nothing it could stand on: it counts as a letter of its own.
        folded = {folded.accents[0], {folded.accents[1], folded.accents[2]}};
    }
    while (m_at < m_text.size() && !IsAscii(m_text[m_at])) {
        std::size_t behind = m_at;
        const char32_t composed = FoldTable::ComposeLetters(code, Utf8::Next(m_text, behind));
        if (composed == 0)
            break;
        code = composed;
        folded = FoldTable::Lookup(code);
        m_at = behind;
    }
    accents.Add(folded);
    while (m_at < m_text.size() && !IsAscii(m_text[m_at])) {
        std::size_t behind = m_at;
        const FoldedCode next = FoldTable::Lookup(Utf8::Next(m_text, behind));
        if (!next.IsAccent())
            break;
        accents.Add(next);
        m_at = behind;
    }
    letter = {folded.base, accents.Packed()};
    return true;
}

std::vector<Fold::Letter> Fold::Letters(std::string_view text)
{
    std::vector<Letter> letters;
    letters.reserve(text.size());
    Reader reader(text);
    for (Letter letter; reader.Next(letter);)
        letters.push_back(letter);
    return letters;
}

void Fold::AppendBase(std::string& out, const Letter& letter)
{
    Utf8::Append(out, letter.base);
}

void Fold::AppendBases(std::string& out, std::string_view text)
{
    out.reserve(out.size() + text.size());
    const std::size_t start = out.size();
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t run = AsciiRun(text.substr(at));
        AppendLowerAscii(out, text.substr(at, run));
        at += run;
        if (at == text.size())
            return;
        std::size_t behind = at;
        const char32_t code = Utf8::Next(text, behind);
        if (code < LatinEnd) {
            const FoldedCode folded = FoldTable::Lookup(code);
            if (!folded.IsAccent())
                Utf8::Append(out, folded.base);
            else if (out.size() == start)
                Utf8::Append(out, folded.accents[0]);
            at = behind;
            continue;
        }
        // Letters of other scripts may belong together with what follows them.
        Reader reader(text.substr(at));
        Letter letter;
        if (out.size() != start && FoldTable::Lookup(code).IsAccent()) {
            at = behind;
            continue;
        }
        reader.Next(letter);
        AppendBase(out, letter);
        at += reader.Position();
    }
}

std::string Fold::Bases(std::string_view text)
{
    std::string bases;
    AppendBases(bases, text);
    return bases;
}
