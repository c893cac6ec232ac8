#pragma once

#include "store/Value.h"

#include <QString>
#include <QVarLengthArray>

/// A statement without the values in it: the forms build the same few statements over and over,
/// with other texts and numbers each time, and what is told apart by values alone is read only
/// once.
class Shape
{
public:
    /// A text, or a whole number of at most MostDigits digits.
    struct Literal
    {
        qsizetype place = 0;    ///< where it begins, in characters from 0
        QStringView text;       ///< as it stands in the statement, quotes included
        bool isText = false;    ///< else a number
        bool hasQuotes = false; ///< of a text: doubled ones are inside
    };

    /// A list with more values is one of marked songs, which hardly comes twice.
    static constexpr qsizetype MostLiterals = 32;
    static constexpr qsizetype MostDigits = 18;
    static constexpr qsizetype LongestKey = 2048; ///< characters

    /// Cuts a statement at its literals, where the Lexer would.
    /// @param sql  must outlive the literals
    /// @return false for anything unusual: letters that are no ASCII or brackets outside literals,
    ///         fractions, literals without an end, too many of them. Such a statement is read anew
    bool Read(QStringView sql);

    /// @return the statement, a sign that begins no token in place of each literal: another for
    /// texts
    ///         than for numbers.
    const QString& Key() const noexcept { return m_key; }

    qsizetype Count() const noexcept { return m_literals.size(); }
    const Literal& At(qsizetype literal) const { return m_literals[literal]; }

    /// @return which literal begins at a place, -1 for none
    qsizetype Find(qsizetype place) const;

    /// @return what the literal says: a text without quotes, a number
    static Value ValueOf(const Literal& literal);

private:
    const QChar* ReadText(const QChar* at, const QChar* end);
    const QChar* ReadNumber(const QChar* at, const QChar* end);
    bool Add(Literal literal, QChar sign);

    QString m_key;
    QVarLengthArray<Literal, MostLiterals> m_literals;
    const QChar* m_begin = nullptr;
    const QChar* m_pending = nullptr; ///< from here on nothing is in the key yet
};
