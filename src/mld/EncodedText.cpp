#include "mld/EncodedText.h"

#include "store/CodePage.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <optional>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace {

using Byte = unsigned char;

#ifdef __SSE2__

/// Bytes that are looked at in one go.
constexpr std::ptrdiff_t Together = 16;

/// @return how many of the next bytes, Together at most, are ASCII that is copied as it is
std::ptrdiff_t PlainAt(const char* bytes)
{
    const __m128i all = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
    const auto are = [](__m128i some, char c) { return _mm_cmpeq_epi8(some, _mm_set1_epi8(c)); };
    const __m128i brackets = are(_mm_and_si128(all, _mm_set1_epi8('\xFD')), '<'); // one bit apart
    const __m128i special = _mm_or_si128(_mm_or_si128(brackets, are(all, '\n')), all);
    const auto marks = static_cast<unsigned>(_mm_movemask_epi8(special)); // the highest bits
    return marks == 0 ? Together : std::countr_zero(marks);
}

#else

/// As above, for other processors.
constexpr std::ptrdiff_t Together = 8;

std::ptrdiff_t PlainAt(const char* bytes)
{
    return std::find_if(bytes, bytes + Together,
                        [](char c) {
                            return static_cast<Byte>(c) >= 0x80 || c == '<' || c == '>' ||
                                   c == '\n';
                        }) -
           bytes;
}

#endif

/// The bytes of U+0080 to U+02FF, all below the first mark that joins a letter.
constexpr Byte FirstLetter = 0x80;
constexpr char16_t FirstMark = 0x300;

using LetterTable = std::array<char, FirstMark>;

const LetterTable& Letters()
{
    static const LetterTable letters = [] {
        LetterTable table{};
        for (char16_t letter = 0; letter < FirstMark; ++letter)
            table[letter] = CodePage::ByteOf(letter);
        return table;
    }();
    return letters;
}

/// @return the byte of a letter of two; nothing for any other beginning
std::optional<char> LetterAt(const LetterTable& letters, const char* in, const char* end)
{
    const auto lead = static_cast<Byte>(*in);
    const bool isLetter =
        lead >= 0xC2 && lead < 0xCC && end - in > 1 && (static_cast<Byte>(in[1]) & 0xC0) == 0x80;
    if (!isLetter)
        return std::nullopt;
    const unsigned code = (lead & 0x1FU) << 6 | (static_cast<Byte>(in[1]) & 0x3FU);
    return letters[code];
}

} // namespace

bool EncodedText::Append(QByteArray& document, const QByteArray& utf8, Rules rules)
{
    static constexpr std::string_view Mark = "[br]";
    const LetterTable& letters = Letters();
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
            const auto letter = LetterAt(letters, in, end);
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
