#include "store/dialect/Shape.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr QChar TextSign = QChar(1);
constexpr QChar NumberSign = QChar(2);

bool IsDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool BeginsWord(QChar c)
{
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c == u'_';
}

bool ContinuesWord(QChar c)
{
    return BeginsWord(c) || IsDigit(c);
}

/// Neither of them is part of a longer token that a literal could be, too.
bool StandsAlone(QChar c)
{
    static constexpr std::u16string_view Signs = u" \t\r\n()*+-/&=<>,;";
    return Signs.find(c.unicode()) != Signs.npos;
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
        const QChar c = *at;
        if (BeginsWord(c))
            at = std::find_if_not(at, end, ContinuesWord);
        else if (StandsAlone(c) || (c == u'.' && end - at > 1 && BeginsWord(at[1])))
            ++at;
        else if (c == u'\'' || c == u'"')
            at = ReadText(at, end);
        else if (IsDigit(c))
            at = ReadNumber(at, end);
        else
            return false;
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
    const bool isWhole = behind == end || StandsAlone(*behind);
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
