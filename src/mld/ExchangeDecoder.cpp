#include "mld/ExchangeDecoder.h"

#include "store/CodePage.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace {

constexpr std::size_t LongestLetter = 3; // of the code page, in UTF-8

struct Letter
{
    std::array<char, LongestLetter> bytes{};
    std::uint8_t size = 0;
};

/// Each byte of the code page in UTF-8.
const std::array<Letter, 256>& Letters()
{
    static const std::array<Letter, 256> letters = [] {
        std::array<Letter, 256> table;
        for (std::size_t code = 0; code < table.size(); ++code) {
            const char byte = static_cast<char>(code);
            const QByteArray utf8 = CodePage::ToUnicode(QByteArrayView(&byte, 1)).toUtf8();
            std::copy(utf8.begin(), utf8.end(), table[code].bytes.begin());
            table[code].size = static_cast<std::uint8_t>(utf8.size());
        }
        return table;
    }();
    return letters;
}

/// @return whether eight bytes are ASCII, as nearly all of a song is.
bool AreAscii(const char* bytes)
{
    std::uint64_t eight = 0;
    std::memcpy(&eight, bytes, sizeof eight);
    return (eight & 0x8080808080808080U) == 0;
}

void DecodeCodePage(QByteArrayView bytes, QByteArray& out)
{
    const auto& letters = Letters();
    const qsizetype before = out.size();
    out.resize(before + bytes.size() * static_cast<qsizetype>(LongestLetter));
    char* to = out.data() + before;
    const char* from = bytes.begin();
    while (from != bytes.end()) {
        if (bytes.end() - from >= 8 && AreAscii(from)) {
            std::memcpy(to, from, 8);
            to += 8;
            from += 8;
            continue;
        }
        const Letter& letter = letters[static_cast<unsigned char>(*from++)];
        std::memcpy(to, letter.bytes.data(), LongestLetter);
        to += letter.size;
    }
    out.resize(to - out.constData());
}

/// @return the encoding that the declaration names, in capitals; empty without one.
QByteArray Declared(QByteArrayView start)
{
    static const QRegularExpression declaration(
        QStringLiteral(R"(\A<\?xml\s[^>]*?\sencoding\s*=\s*(["'])([A-Za-z][\w.:-]*)\1)"));
    const auto found = declaration.match(QString::fromLatin1(start));
    return found.captured(2).toLatin1().toUpper();
}

bool IsCodePage(const QByteArray& name)
{
    static constexpr std::array<std::string_view, 15> names{
        "ISO-8859-1", "ISO8859-1",    "ISO_8859-1", "ISO88591", "ISO-LATIN-1",
        "LATIN1",     "LATIN-1",      "L1",         "CP819",    "IBM819",
        "CP1252",     "WINDOWS-1252", "CP-1252",    "MS-ANSI",  "WINDOWS1252"};
    const std::string_view wanted(name.constData(), static_cast<std::size_t>(name.size()));
    return std::find(names.begin(), names.end(), wanted) != names.end();
}

ExchangeDecoder::Encoding EncodingOf(QByteArrayView start)
{
    using Encoding = ExchangeDecoder::Encoding;
    if (start.startsWith(QByteArrayView("\xEF\xBB\xBF", 3)))
        return Encoding::MarkedUtf8;
    // A mark, or the "<" that every file begins with.
    if (start.startsWith(QByteArrayView("\xFF\xFE", 2)) ||
        start.startsWith(QByteArrayView("<\0", 2)))
        return Encoding::Utf16Little;
    if (start.startsWith(QByteArrayView("\xFE\xFF", 2)) ||
        start.startsWith(QByteArrayView("\0<", 2)))
        return Encoding::Utf16Big;
    return IsCodePage(Declared(start)) ? Encoding::CodePage : Encoding::AsDeclared;
}

/// Nothing in XML has the code zero, and the parser would take it for the end of the file.
bool HoldsZero(QByteArrayView bytes)
{
    return !bytes.isEmpty() &&
           std::memchr(bytes.data(), 0, static_cast<std::size_t>(bytes.size())) != nullptr;
}

void AppendUtf8(QByteArray& out, char32_t code)
{
    const auto put = [&out](char32_t byte) { out.append(static_cast<char>(byte)); };
    if (code < 0x80) {
        put(code);
        return;
    }
    if (code < 0x800) {
        put(0xC0 | code >> 6);
    } else {
        if (code < 0x10000) {
            put(0xE0 | code >> 12);
        } else {
            put(0xF0 | code >> 18);
            put(0x80 | (code >> 12 & 0x3F));
        }
        put(0x80 | (code >> 6 & 0x3F));
    }
    put(0x80 | (code & 0x3F));
}

} // namespace

ExchangeDecoder::ExchangeDecoder(QByteArrayView start)
    : m_encoding(EncodingOf(start.first(std::min(start.size(), StartSize))))
{
}

bool ExchangeDecoder::Decode(QByteArrayView bytes, QByteArray& out)
{
    switch (m_encoding) {
    case Encoding::Utf16Little:
    case Encoding::Utf16Big:
        return DecodeUtf16(bytes, out);
    case Encoding::CodePage:
        if (HoldsZero(bytes))
            return false;
        DecodeCodePage(bytes, out);
        return true;
    case Encoding::MarkedUtf8:
    case Encoding::AsDeclared:
        break;
    }
    if (HoldsZero(bytes))
        return false;
    out.append(bytes);
    return true;
}

bool ExchangeDecoder::DecodeUtf16(QByteArrayView bytes, QByteArray& out)
{
    out.reserve(out.size() + bytes.size());
    for (const char byte : bytes) {
        if (!m_hasHalf) {
            m_half = byte;
            m_hasHalf = true;
            continue;
        }
        m_hasHalf = false;
        const bool little = m_encoding == Encoding::Utf16Little;
        const auto low = static_cast<unsigned char>(little ? m_half : byte);
        const auto high = static_cast<unsigned char>(little ? byte : m_half);
        if (!PutUnit(static_cast<char16_t>(high << 8 | low), out))
            return false;
    }
    return true;
}

bool ExchangeDecoder::PutUnit(char16_t unit, QByteArray& out)
{
    const bool isLow = QChar::isLowSurrogate(unit);
    if (unit == 0 || isLow != (m_high != 0))
        return false;
    if (QChar::isHighSurrogate(unit)) {
        m_high = unit;
        return true;
    }
    AppendUtf8(out, isLow ? QChar::surrogateToUcs4(m_high, unit) : char32_t{unit});
    m_high = 0;
    return true;
}

bool ExchangeDecoder::Finish() const noexcept
{
    return !m_hasHalf && m_high == 0;
}
