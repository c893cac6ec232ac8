#include "mld/EncodedText.h"

#include "store/CodePage.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

namespace {

using Byte = unsigned char;

/// Bytes that are looked at in one go.
constexpr std::ptrdiff_t Together = 8;

constexpr std::uint64_t Each(Byte byte)
{
    return byte * 0x0101'0101'0101'0101U;
}

/// @return the highest bit of each byte that is zero; behind the first one also of others
constexpr std::uint64_t ZerosOf(std::uint64_t bytes)
{
    return (bytes - Each(1)) & ~bytes & Each(0x80);
}

/// @return how many of the next eight bytes are ASCII that is copied as it is
std::ptrdiff_t PlainAt(const char* bytes)
{
    std::uint64_t eight = 0;
    std::memcpy(&eight, bytes, sizeof eight);
    const std::uint64_t brackets = (eight & Each(0xFD)) ^ Each('<'); // they differ in one bit
    const std::uint64_t special =
        (eight & Each(0x80)) | ZerosOf(brackets) | ZerosOf(eight ^ Each('\n'));
    if (special == 0)
        return Together;
    if constexpr (std::endian::native == std::endian::little)
        return std::countr_zero(special) / 8;
    return 0;
}

/// The bytes of U+0080 to U+02FF, all below the first mark that joins a letter.
constexpr Byte FirstLetter = 0x80;
constexpr char16_t FirstMark = 0x300;

const std::array<char, FirstMark>& Letters()
{
    static const std::array<char, FirstMark> letters = [] {
        std::array<char, FirstMark> table{};
        for (char16_t letter = 0; letter < FirstMark; ++letter)
            table[letter] = CodePage::ByteOf(letter);
        return table;
    }();
    return letters;
}

/// @return the byte of a letter of two; nothing for any other beginning
std::optional<char> LetterAt(const char* in, const char* end)
{
    const auto lead = static_cast<Byte>(*in);
    const bool isLetter =
        lead >= 0xC2 && lead < 0xCC && end - in > 1 && (static_cast<Byte>(in[1]) & 0xC0) == 0x80;
    if (!isLetter)
        return std::nullopt;
    const unsigned code = (lead & 0x1FU) << 6 | (static_cast<Byte>(in[1]) & 0x3FU);
    return Letters()[code];
}

} // namespace

bool EncodedText::Append(QByteArray& document, const QByteArray& utf8, Rules rules)
{
    static constexpr std::string_view Mark = "[br]";
    const qsizetype before = document.size();
    document.resize(before + 2 * utf8.size() + Together); // a break of two becomes a mark of four
    char* const begin = document.data() + before;
    char* out = begin;
    const char* in = utf8.constData();
    const char* const end = in + utf8.size();
    while (in != end) {
        if (end - in >= Together) {
            const std::ptrdiff_t plain = PlainAt(in);
            std::memcpy(out, in, Together);
            out += plain;
            in += plain;
            if (plain == Together)
                continue;
        }
        const char c = *in;
        if (static_cast<Byte>(c) >= FirstLetter) {
            const auto letter = LetterAt(in, end);
            if (!letter) {
                document.truncate(before);
                return false;
            }
            *out++ = *letter;
            in += 2;
            continue;
        }
        ++in;
        if (rules.dropsBrackets && (c == '<' || c == '>'))
            continue;
        if (c == '\n' && rules.marksBreaks && out != begin && out[-1] == '\r')
            out = Mark.copy(out - 1, Mark.size()) + out - 1;
        else
            *out++ = c;
    }
    document.truncate(out - document.constData());
    return true;
}
