#include "store/CodePage.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <optional>

namespace {

constexpr char16_t FirstOwn = 0x80;
constexpr char16_t LastOwn = 0x9F;

// The only places where the code page differs from the first 256 code points.
constexpr std::array<char16_t, LastOwn - FirstOwn + 1> Own{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool IsLatin(char16_t unit)
{
    return unit < FirstOwn || (unit > LastOwn && unit <= 0xFF);
}

constexpr std::ptrdiff_t Together = 8; ///< characters that are looked at in one go

/// @param units  Together of them
bool AreAscii(const char16_t* units)
{
    std::array<std::uint64_t, 2> bits{};
    static_assert(sizeof bits == Together * sizeof(char16_t));
    std::memcpy(bits.data(), units, sizeof bits);
    return ((bits[0] | bits[1]) & 0xFF80'FF80'FF80'FF80) == 0;
}

std::optional<char> ToByte(char16_t unit)
{
    if (IsLatin(unit))
        return static_cast<char>(unit);
    const auto* const found = std::find(Own.begin(), Own.end(), unit);
    if (found == Own.end())
        return std::nullopt;
    return static_cast<char>(FirstOwn + std::distance(Own.begin(), found));
}

} // namespace

QString CodePage::ToUnicode(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), [](char byte) {
        const char16_t code = static_cast<unsigned char>(byte);
        const bool own = code >= FirstOwn && code <= LastOwn;
        return QChar(own ? Own.at(std::size_t{code} - FirstOwn) : code);
    });
    return text;
}

QByteArray CodePage::FromUnicode(QStringView text)
{
    QByteArray bytes;
    AppendFromUnicode(bytes, text);
    return bytes;
}

char CodePage::ByteOf(char16_t unit)
{
    return ToByte(unit).value_or('?');
}

void CodePage::AppendFromUnicode(QByteArray& bytes, QStringView text)
{
    const qsizetype before = bytes.size();
    bytes.resize(before + text.size());
    char* out = bytes.data() + before;
    const char16_t* in = text.utf16();
    const char16_t* const end = in + text.size();
    while (in != end) {
        if (end - in >= Together && AreAscii(in)) { // nearly all of a text of many megabytes
            std::transform(in, in + Together, out,
                           [](char16_t unit) { return static_cast<char>(unit); });
            in += Together;
            out += Together;
            continue;
        }
        const char16_t unit = *in++;
        *out++ = IsLatin(unit) ? static_cast<char>(unit) : ToByte(unit).value_or('?');
        if (QChar::isHighSurrogate(unit) && in != end && QChar::isLowSurrogate(*in))
            ++in;
    }
    bytes.truncate(out - bytes.constData());
}

bool CodePage::Holds(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar unit) {
        return IsLatin(unit.unicode()) || ToByte(unit.unicode());
    });
}
