#include "store/dialect/Shape.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace {

constexpr QChar TextSign = QChar(1);
constexpr QChar NumberSign = QChar(2);

/// What a character outside literals is part of.
enum class Part : std::uint8_t {
    Unusual,
    Digit, ///< of a number, or of a word that has begun
    Word,
    Alone, ///< a sign that is no part of a longer token that a literal could be, too
    Quote,
    Point,
};

constexpr std::array<Part, 128> Parts = [] {
    std::array<Part, 128> parts{};
    const auto put = [&parts](std::string_view characters, Part part) {
        for (const char c : characters)
            parts[static_cast<unsigned char>(c)] = part;
    };
    put("0123456789", Part::Digit);
    put("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_", Part::Word);
    put(" \t\r\n()*+-/&=<>,;", Part::Alone);
    put("'\"", Part::Quote);
    put(".", Part::Point);
    return parts;
}();

Part PartOf(QChar c)
{
    return c.unicode() < Parts.size() ? Parts[c.unicode()] : Part::Unusual;
}

bool IsDigit(QChar c)
{
    return PartOf(c) == Part::Digit;
}

bool ContinuesWord(QChar c)
{
    const Part part = PartOf(c);
    return part == Part::Word || part == Part::Digit;
}

} // namespace

bool Shape::Read(QStringView sql)
{
    m_key.resize(0);
    m_literals.clear();
    m_begin = m_pending = sql.begin();
    const QChar* const end = sql.end();
    const QChar* at = m_begin;
    while (at && at != end) {
        switch (PartOf(*at)) {
        case Part::Word:
            at = std::find_if_not(at, end, ContinuesWord);
            break;
        case Part::Alone:
            ++at;
            break;
        case Part::Quote:
            at = ReadText(at, end);
            break;
        case Part::Digit:
            at = ReadNumber(at, end);
            break;
        case Part::Point: // between a table and its column
            if (end - at == 1 || PartOf(at[1]) != Part::Word)
                return false;
            ++at;
            break;
        case Part::Unusual:
            return false;
        }
    }
    if (!at || m_key.size() + (end - m_pending) > LongestKey)
        return false;
    m_key.append(m_pending, end - m_pending);
    return true;
}

/// @return behind the text, nullptr where it has no end or there are too many literals
const QChar* Shape::ReadText(const QChar* at, const QChar* end)
{
    Literal literal{at - m_begin, {}, true};
    const QChar quote = *at;
    const QStringView rest(at, end);
    qsizetype from = 1;
    while (true) {
        const qsizetype found = rest.indexOf(quote, from);
        if (found < 0)
            return nullptr;
        from = found + 1;
        if (from == rest.size() || rest[from] != quote)
            break;
        literal.hasQuotes = true; // a doubled one stands for itself
        ++from;
    }
    literal.text = rest.first(from);
    return Add(literal, TextSign) ? at + from : nullptr;
}

const QChar* Shape::ReadNumber(const QChar* at, const QChar* end)
{
    const QChar* const behind = std::find_if_not(at, end, IsDigit);
    const bool isWhole = behind == end || PartOf(*behind) == Part::Alone;
    if (!isWhole || behind - at > MostDigits ||
        !Add({at - m_begin, QStringView(at, behind)}, NumberSign))
        return nullptr;
    return behind;
}

bool Shape::Add(Literal literal, QChar sign)
{
    const QChar* const place = m_begin + literal.place;
    if (m_literals.size() == MostLiterals || m_key.size() + (place - m_pending) >= LongestKey)
        return false;
    m_key.append(m_pending, place - m_pending).append(sign);
    m_pending = place + literal.text.size();
    m_literals.append(literal);
    return true;
}

qsizetype Shape::Find(qsizetype place) const
{
    const auto* const found =
        std::find_if(m_literals.begin(), m_literals.end(),
                     [place](const Literal& literal) { return literal.place == place; });
    return found == m_literals.end() ? -1 : found - m_literals.begin();
}

Value Shape::ValueOf(const Literal& literal)
{
    if (!literal.isText)
        return qint64{literal.text.toLongLong()};
    QString text = literal.text.sliced(1, literal.text.size() - 2).toString();
    if (literal.hasQuotes) {
        const QChar quote = literal.text.front();
        text.replace(QString(2, quote), quote);
    }
    return text;
}
