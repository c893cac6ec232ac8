#pragma once

#include <QString>

/// Says what is wrong with a statement: the place, what would have been right, what stands there,
/// and an excerpt in which » marks the spot.
class Complaint
{
public:
    /// @param sql  the statement; must outlive the complaint
    explicit Complaint(QStringView sql)
        : m_sql(sql)
    {
    }

    /// @param expected  what would have been right, after "expected"
    /// @param place     where, in characters from 0
    /// @param found     what stands there, after "found"
    /// @throws RuntimeError StoreFailure, always
    [[noreturn]] void Expected(const QString& expected, qsizetype place,
                               const QString& found) const;

    /// A text literal or bracketed name that begins at place has no end.
    /// @throws RuntimeError StoreFailure, always
    [[noreturn]] void Unclosed(QChar closing, qsizetype place) const;

private:
    QString Excerpt(qsizetype place) const;
    bool FollowsText(qsizetype place) const;
    [[noreturn]] void Throw(bool apostropheLikely, qsizetype place, const QString& what) const;

    QStringView m_sql;
};
