#include "store/Value.h"

#include "runtime/Date.h"
#include "runtime/Number.h"

bool Value::IsNumber() const noexcept
{
    return std::holds_alternative<qint64>(m_data) || std::holds_alternative<double>(m_data);
}

QString Value::ToText() const
{
    if (const auto* text = std::get_if<QString>(&m_data))
        return *text;
    if (const auto* number = std::get_if<qint64>(&m_data))
        return QString::number(*number);
    if (const auto* number = std::get_if<double>(&m_data))
        return Number::ToText(*number);
    if (const auto* date = std::get_if<QDate>(&m_data))
        return Date::ToText(*date);
    return QString();
}

qint64 Value::ToNumber() const
{
    if (IsNull())
        return 0;
    if (const auto* number = std::get_if<qint64>(&m_data))
        return *number;
    if (const auto* number = std::get_if<double>(&m_data))
        return Number::ToLong(*number);
    return Number::ToLong(Number::ToDouble(ToText()));
}
