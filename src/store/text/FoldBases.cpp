#include "store/text/Fold.h"

#include "store/text/FoldTable.h"
#include "store/text/Utf8.h"

#include <array>
#include <bit>
#include <cstring>

namespace {

constexpr std::size_t WordSize = sizeof(std::uint64_t);
constexpr std::uint64_t HighBits = 0x8080808080808080u;
constexpr std::uint64_t Ones = 0x0101010101010101u;

/// Latin and the accents on it: all that UTF-8 writes with two bytes, up to the first Greek letter.
constexpr unsigned char FirstLead = 0xC2;
constexpr unsigned char LastLead = 0xCD;
constexpr char32_t LatinStart = 0x80;
constexpr char32_t LatinEnd = 0x0370;

/// The base of a Latin letter in UTF-8; of an accent, nothing.
struct LatinBase
{
    std::array<char, 4> bytes{};
    std::uint8_t length = 0;
};

using LatinBases = std::array<LatinBase, LatinEnd - LatinStart>;

LatinBases MakeLatinBases()
{
    LatinBases bases;
    for (char32_t code = LatinStart; code < LatinEnd; ++code) {
        const FoldedCode folded = FoldTable::Lookup(code);
        if (folded.IsAccent())
            continue;
        std::string bytes;
        Utf8::Append(bytes, folded.base);
        LatinBase& base = bases[code - LatinStart];
        bytes.copy(base.bytes.data(), base.bytes.size());
        base.length = static_cast<std::uint8_t>(bytes.size());
    }
    return bases;
}

char LowerAscii(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

/// Lowers the ASCII letters in front of the first other byte of a word: a byte gets bit 5 when it
/// lies between 'A' and 'Z'. No sum of theirs carries into the next byte, since each is below 0x80.
std::uint64_t LowerAsciiWord(std::uint64_t word)
{
    const std::uint64_t fromA = word + Ones * (0x80 - 'A');
    const std::uint64_t aboveZ = word + Ones * (0x80 - 'Z' - 1);
    return word + (((fromA & ~aboveZ) & HighBits) >> 2);
}

const LatinBases& Latin()
{
    static const LatinBases bases = MakeLatinBases();
    return bases;
}

/// Where reading and writing stand. Passed by value: bytes written through a pointer may be
/// anything's bytes, so the compiler would read a member again after each.
struct Place
{
    const char* from;
    char* to;
};

unsigned char Byte(const char* at)
{
    return static_cast<unsigned char>(*at);
}

/// More than any of the steps below writes beyond what it moves on.
constexpr std::size_t Room = 16;

Place WriteAscii(Place at)
{
    *at.to = LowerAscii(*at.from);
    return {at.from + 1, at.to + 1};
}

/// Writes one Latin letter; drops an accent. @return at itself in front of anything else
Place WriteLatin(Place at, const char* end, const LatinBases& latin)
{
    if (end - at.from < 2 || Byte(at.from) < FirstLead || Byte(at.from) > LastLead ||
        (Byte(at.from + 1) & 0xC0) != 0x80)
        return at;
    const char32_t code = (static_cast<char32_t>(Byte(at.from) & 0x1F) << 6) |
                          static_cast<char32_t>(Byte(at.from + 1) & 0x3F);
    if (code >= LatinEnd)
        return at;
    const LatinBase& base = latin[code - LatinStart];
    std::memcpy(at.to, base.bytes.data(), base.bytes.size());
    return {at.from + 2, at.to + base.length};
}

/// Writes ASCII and Latin, as long as there are eight bytes to read.
Place WriteWords(Place at, const char* end, const LatinBases& latin)
{
    while (static_cast<std::size_t>(end - at.from) >= WordSize) {
        std::uint64_t word = 0;
        std::memcpy(&word, at.from, WordSize);
        const std::uint64_t others = word & HighBits;
        word = LowerAsciiWord(word);
        std::memcpy(at.to, &word, WordSize);
        if (others == 0) {
            at.from += WordSize;
            at.to += WordSize;
            continue;
        }
        // What follows the first other byte has been written for nothing and is written over.
        if constexpr (std::endian::native == std::endian::little) {
            const int ascii = std::countr_zero(others) / 8;
            at.from += ascii;
            at.to += ascii;
        }
        const Place behind = WriteLatin(at, end, latin);
        if (behind.from == at.from)
            return at;
        at = behind;
    }
    return at;
}

/// Writes the bases of one text behind what a string holds already.
class BaseWriter
{
public:
    BaseWriter(std::string& out, std::string_view text)
        : m_out(out)
        , m_text(text)
        , m_to(out.size())
    {
        // Enough for Latin text: at worst a letter of two bytes becomes one of three.
        m_out.resize(m_to + text.size() + text.size() / 2 + Room);
    }

    void Write()
    {
        if (m_at < m_text.size())
            WriteFirst();
        while (m_at < m_text.size()) {
            WriteRun();
            if (m_at < m_text.size())
                WriteOther();
        }
        m_out.resize(m_to);
    }

private:
    /// An accent with nothing to stand on is a letter of its own; any later one goes.
    void WriteFirst()
    {
        const bool isAscii = Byte(m_text.data()) < LatinStart;
        if (!isAscii)
            WriteLetter();
    }

    void WriteRun()
    {
        const std::size_t left = m_text.size() - m_at;
        if (m_out.size() - m_to < left + left / 2 + Room)
            m_out.resize(m_to + left + left / 2 + Room);
        const char* const end = m_text.data() + m_text.size();
        const LatinBases& latin = Latin();
        Place at = WriteWords({m_text.data() + m_at, m_out.data() + m_to}, end, latin);
        while (at.from < end) {
            const Place behind =
                Byte(at.from) < LatinStart ? WriteAscii(at) : WriteLatin(at, end, latin);
            if (behind.from == at.from)
                break;
            at = behind;
        }
        m_at = static_cast<std::size_t>(at.from - m_text.data());
        m_to = static_cast<std::size_t>(at.to - m_out.data());
    }

    /// Writes what is neither ASCII nor Latin.
    void WriteOther()
    {
        std::size_t behind = m_at;
        if (FoldTable::Lookup(Utf8::Next(m_text, behind)).IsAccent())
            m_at = behind;
        else
            WriteLetter();
    }

    /// Letters of other scripts may belong together with what follows them.
    void WriteLetter()
    {
        Fold::Reader reader(m_text.substr(m_at));
        Fold::Letter letter;
        reader.Next(letter);
        std::string base;
        Fold::AppendBase(base, letter);
        // WriteRun made room for this much of what it did not get to.
        base.copy(m_out.data() + m_to, base.size());
        m_to += base.size();
        m_at += reader.Position();
    }

    std::string& m_out;
    std::string_view m_text;
    std::size_t m_at = 0; ///< in m_text
    std::size_t m_to;     ///< in m_out
};

} // namespace

void Fold::AppendBase(std::string& out, const Letter& letter)
{
    Utf8::Append(out, letter.base);
}

void Fold::AppendBases(std::string& out, std::string_view text)
{
    BaseWriter(out, text).Write();
}

std::string Fold::Bases(std::string_view text)
{
    std::string bases;
    AppendBases(bases, text);
    return bases;
}
