#include "store/StoredDate.h"

namespace {

constexpr std::size_t DateLength = 10;
constexpr std::size_t MonthAt = 5;
constexpr std::size_t DayAt = 8;

/// @return the number that the digits form, or -1.
int Digits(std::string_view digits)
{
    int number = 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9')
            return -1;
        number = number * 10 + (digit - '0');
    }
    return number;
}

} // namespace

std::optional<QDate> StoredDate::FromText(std::string_view text)
{
    if (text.size() < DateLength || text[MonthAt - 1] != '-' || text[DayAt - 1] != '-')
        return std::nullopt;
    if (text.size() > DateLength && text[DateLength] != ' ' && text[DateLength] != 'T')
        return std::nullopt;
    const int year = Digits(text.substr(0, MonthAt - 1));
    const int month = Digits(text.substr(MonthAt, 2));
    const int day = Digits(text.substr(DayAt, 2));
    if (year < 1 || !QDate::isValid(year, month, day))
        return std::nullopt;
    return QDate(year, month, day);
}
