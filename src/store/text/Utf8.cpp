#include "store/text/Utf8.h"

#include <unicode/utf8.h>

char32_t Utf8::Next(std::string_view text, std::size_t& at)
{
    const auto* bytes = reinterpret_cast<const uint8_t*>(text.data());
    const std::size_t length = text.size();
    UChar32 code = 0;
    U8_NEXT_OR_FFFD(bytes, at, length, code);
    return static_cast<char32_t>(code);
}

void Utf8::Append(std::string& out, char32_t code)
{
    const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    // Every byte behind the first carries six bits.
    const auto follow = [&put](char32_t bits) { put(0x80 | (bits & 0x3f)); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xc0 | (code >> 6));
        follow(code);
    } else if (code < 0x10000) {
        put(0xe0 | (code >> 12));
        follow(code >> 6);
        follow(code);
    } else {
        put(0xf0 | (code >> 18));
        follow(code >> 12);
        follow(code >> 6);
        follow(code);
    }
}

QString Utf8::ToText(std::string_view text)
{
    constexpr std::string_view Mark = "\xEF\xBB\xBF";
    qsizetype marks = 0;
    for (; text.starts_with(Mark); ++marks)
        text.remove_prefix(Mark.size());
    const QString rest = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    return marks == 0 ? rest : QString(QString(marks, QChar::ByteOrderMark) + rest);
}
