#include "store/dialect/Complaint.h"

#include "store/NotUnderstood.h"

#include <algorithm>

namespace {

/// How much of a statement is shown around the spot: it may hold a whole song.
constexpr qsizetype ExcerptBefore = 30;
constexpr qsizetype ExcerptBehind = 30;

} // namespace

void Complaint::Expected(const QString& expected, qsizetype place, const QString& found) const
{
    Throw(FollowsText(place), place, u"expected " + expected + u", found " + found);
}

void Complaint::Unclosed(QChar closing, qsizetype place) const
{
    Throw(closing != u']', place,
          QStringLiteral("expected a closing ") + closing + u", found the end of the statement");
}

void Complaint::Throw(bool apostropheLikely, qsizetype place, const QString& what) const
{
    QString whatFailed = QStringLiteral("O banco de dados não entendeu um comando.");
    if (apostropheLikely)
        whatFailed += u" Um apóstrofo (') no texto digitado pode ser a causa.";
    throw NotUnderstood(RuntimeError::StoreFailure, whatFailed,
                        u"Character " + QString::number(place + 1) + u": " + what + u"\n" +
                            Excerpt(place));
}

QString Complaint::Excerpt(qsizetype place) const
{
    const qsizetype begin = std::max<qsizetype>(0, place - ExcerptBefore);
    const qsizetype end = std::min(m_sql.size(), place + ExcerptBehind);
    QString excerpt =
        m_sql.sliced(begin, place - begin).toString() + u'»' + m_sql.sliced(place, end - place);
    std::replace_if(
        excerpt.begin(), excerpt.end(), [](QChar c) { return c < u' '; }, u' ');
    if (begin > 0)
        excerpt.prepend(u'…');
    if (end < m_sql.size())
        excerpt.append(u'…');
    return excerpt;
}

/// Something right behind a closing quote is nearly always the rest of a text in which an
/// apostrophe was typed.
bool Complaint::FollowsText(qsizetype place) const
{
    return place > 0 && place < m_sql.size() &&
           (m_sql[place - 1] == u'\'' || m_sql[place - 1] == u'"');
}
