#pragma once

#include "store/dialect/Complaint.h"

#include <QString>

/// The smallest piece of a statement that means something.
struct Token
{
    enum class Kind { End, Keyword, Name, Number, Text, Symbol };

    Kind kind = Kind::End;
    QStringView text;    ///< as it stands in the statement, brackets and quotes included
    qsizetype place = 0; ///< where it begins, in characters from 0

    /// @param word  a keyword in capitals or a symbol; letter case of the statement is ignored
    bool Is(QStringView word) const noexcept;

    /// @return what a Name names, a Text says (doubled quotes single again) or a Number is (no
    /// leading zeros, so that nobody takes it for an octal number)
    QString Value() const;

    /// @return the token in the words of a message.
    QString Describe() const;
};

/// Cuts a statement into tokens, one at a time, reading each character once.
class Lexer
{
public:
    /// @param sql        the statement; must outlive the lexer and its tokens
    /// @param complaint  raises what is wrong with the statement
    Lexer(QStringView sql, const Complaint& complaint)
        : m_sql(sql)
        , m_complaint(complaint)
    {
    }

    /// @return the next token; at the end of the statement End, again and again.
    /// @throws RuntimeError StoreFailure for a character that begins no token, a number with
    ///         letters at its end, a text or a bracketed name without an end
    Token Next();

private:
    QChar At(qsizetype place) const { return place < m_sql.size() ? m_sql[place] : QChar(); }
    qsizetype EndOfWord(qsizetype place) const;
    qsizetype EndOfDigits(qsizetype place) const;
    qsizetype EndOfNumber(qsizetype place) const;
    qsizetype EndOfQuoted(qsizetype place, QChar closing) const;
    qsizetype EndOfSymbol(qsizetype place) const;
    Token Cut(Token::Kind kind, qsizetype end);

    QStringView m_sql;
    const Complaint& m_complaint;
    qsizetype m_place = 0;
};
