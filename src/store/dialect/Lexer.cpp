#include "store/dialect/Lexer.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

/// Words that cannot be the name of a table or column unless it stands in brackets; sorted.
constexpr std::array<std::u16string_view, 27> Keywords{
    u"AND",   u"AS", u"ASC",   u"BETWEEN", u"BY",     u"DELETE", u"DESC",   u"DISTINCT", u"FROM",
    u"GROUP", u"IN", u"INNER", u"INSERT",  u"INTO",   u"IS",     u"JOIN",   u"LIKE",     u"NOT",
    u"NULL",  u"ON", u"OR",    u"ORDER",   u"SELECT", u"SET",    u"UPDATE", u"VALUES",   u"WHERE",
};

constexpr qsizetype LongestDescription = 30;

bool IsBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

bool IsDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool BeginsWord(QChar c)
{
    return c.isLetter() || c == u'_' || c.isSurrogate();
}

bool ContinuesWord(QChar c)
{
    return BeginsWord(c) || c.isDigit() || c.isMark();
}

/// Lengths first: most words that are compared have another one.
bool IsWord(QStringView a, QStringView b)
{
    return a.size() == b.size() && a.compare(b, Qt::CaseInsensitive) == 0;
}

bool IsKeyword(QStringView word)
{
    return std::any_of(Keywords.begin(), Keywords.end(), [word](std::u16string_view keyword) {
        return IsWord(word, QStringView(keyword));
    });
}

} // namespace

bool Token::Is(QStringView word) const noexcept
{
    return (kind == Kind::Keyword || kind == Kind::Symbol) && IsWord(text, word);
}

QString Token::Value() const
{
    switch (kind) {
    case Kind::Text: {
        const QChar quote = text.front();
        return text.sliced(1, text.size() - 2).toString().replace(QString(2, quote), quote);
    }
    case Kind::Name:
        return (text.front() == u'[' ? text.sliced(1, text.size() - 2) : text).toString();
    case Kind::Number: {
        qsizetype zeros = 0;
        while (zeros + 1 < text.size() && text[zeros] == u'0' && IsDigit(text[zeros + 1]))
            ++zeros;
        return text.sliced(zeros).toString();
    }
    default:
        return text.toString();
    }
}

QString Token::Describe() const
{
    if (kind == Kind::End)
        return QStringLiteral("the end of the statement");
    if (text.size() <= LongestDescription)
        return text.toString();
    return text.first(LongestDescription) + u"…";
}

Token Lexer::Next()
{
    while (IsBlank(At(m_place)))
        ++m_place;
    if (m_place == m_sql.size())
        return {Token::Kind::End, m_sql.sliced(m_place), m_place};

    const QChar first = At(m_place);
    if (BeginsWord(first)) {
        const qsizetype end = EndOfWord(m_place);
        const bool keyword = IsKeyword(m_sql.sliced(m_place, end - m_place));
        return Cut(keyword ? Token::Kind::Keyword : Token::Kind::Name, end);
    }
    if (IsDigit(first) || (first == u'.' && IsDigit(At(m_place + 1))))
        return Cut(Token::Kind::Number, EndOfNumber(m_place));
    if (first == u'\'' || first == u'"')
        return Cut(Token::Kind::Text, EndOfQuoted(m_place, first));
    if (first == u'[')
        return Cut(Token::Kind::Name, EndOfQuoted(m_place, u']'));
    return Cut(Token::Kind::Symbol, EndOfSymbol(m_place));
}

Token Lexer::Cut(Token::Kind kind, qsizetype end)
{
    const Token token{kind, m_sql.sliced(m_place, end - m_place), m_place};
    m_place = end;
    return token;
}

qsizetype Lexer::EndOfWord(qsizetype place) const
{
    while (ContinuesWord(At(place)))
        ++place;
    return place;
}

qsizetype Lexer::EndOfDigits(qsizetype place) const
{
    while (IsDigit(At(place)))
        ++place;
    return place;
}

qsizetype Lexer::EndOfNumber(qsizetype place) const
{
    qsizetype end = EndOfDigits(place);
    if (At(end) == u'.')
        end = EndOfDigits(end + 1);
    if (At(end).toLower() == u'e') {
        const bool sign = At(end + 1) == u'+' || At(end + 1) == u'-';
        const qsizetype digits = end + (sign ? 2 : 1);
        if (IsDigit(At(digits)))
            end = EndOfDigits(digits);
    }
    if (ContinuesWord(At(end))) {
        const qsizetype wordEnd = EndOfWord(end);
        m_complaint.Expected(
            QStringLiteral("a number"), place,
            Token{Token::Kind::Name, m_sql.sliced(place, wordEnd - place), place}.Describe());
    }
    return end;
}

/// A doubled quote stands for itself and does not end the text; names in brackets know no doubling.
qsizetype Lexer::EndOfQuoted(qsizetype place, QChar closing) const
{
    qsizetype from = place + 1;
    while (true) {
        const qsizetype found = m_sql.indexOf(closing, from);
        if (found < 0)
            m_complaint.Unclosed(closing, place);
        if (closing == u']' || At(found + 1) != closing)
            return found + 1;
        from = found + 2;
    }
}

qsizetype Lexer::EndOfSymbol(qsizetype place) const
{
    static constexpr std::u16string_view Single = u"()*+-/&=<>,.;";
    const QChar first = At(place);
    const QChar second = At(place + 1);
    if ((first == u'<' && (second == u'>' || second == u'=')) || (first == u'>' && second == u'='))
        return place + 2;
    if (Single.find(first.unicode()) == Single.npos)
        m_complaint.Expected(QStringLiteral("a word, a number, a text or an operator"), place,
                             first.isPrint()
                                 ? QString(first)
                                 : u"character code " + QString::number(first.unicode()));
    return place + 1;
}
