#include "store/text/Fold.h"

#include "store/text/FoldTable.h"
#include "store/text/Utf8.h"

#include <algorithm>
#include <array>

namespace {

constexpr int AccentBits = 21;

bool IsAscii(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
}

char LowerAscii(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
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
