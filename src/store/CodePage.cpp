#include "store/CodePage.h"

#include <algorithm>
#include <array>
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
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char* out = bytes.data();
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        if (IsLatin(unit)) { // nearly all of a text of many megabytes
            *out++ = static_cast<char>(unit);
            continue;
        }
        *out++ = ToByte(unit).value_or('?');
        if (QChar::isHighSurrogate(unit) && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
    }
    bytes.truncate(out - bytes.constData());
    return bytes;
}

bool CodePage::Holds(QStringView text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar unit) { return ToByte(unit.unicode()).has_value(); });
}
