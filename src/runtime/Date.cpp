#include "runtime/Date.h"

#include <QList>

namespace {

constexpr int FirstYear = 100;
constexpr int LastYear = 9999;

/// @return the number of minDigits to maxDigits ASCII digits, or -1.
int Digits(QStringView text, int minDigits, int maxDigits)
{
    if (text.size() < minDigits || text.size() > maxDigits)
        return -1;
    int number = 0;
    for (const QChar digit : text) {
        if (digit < u'0' || digit > u'9')
            return -1;
        number = number * 10 + (digit.unicode() - u'0');
    }
    return number;
}

} // namespace

std::optional<QDate> Date::FromText(QStringView text)
{
    const QList<QStringView> parts = text.split(u'/');
    if (parts.size() != 3)
        return std::nullopt;
    const int day = Digits(parts[0], 1, 2);
    const int month = Digits(parts[1], 1, 2);
    const int year = Digits(parts[2], 3, 4);
    if (year < FirstYear || year > LastYear || !QDate::isValid(year, month, day))
        return std::nullopt;
    return QDate(year, month, day);
}

QString Date::ToText(QDate date)
{
    return QStringLiteral("%1/%2/%3")
        .arg(date.day(), 2, 10, QLatin1Char('0'))
        .arg(date.month(), 2, 10, QLatin1Char('0'))
        .arg(date.year(), 4, 10, QLatin1Char('0'));
}

QString Date::ToStored(QDate date)
{
    return QStringLiteral("%1-%2-%3")
        .arg(date.year(), 4, 10, QLatin1Char('0'))
        .arg(date.month(), 2, 10, QLatin1Char('0'))
        .arg(date.day(), 2, 10, QLatin1Char('0'));
}
