#pragma once

#include <QDate>
#include <QString>

#include <variant>

/// One field of a row. NULL and an empty text are different and stay what they are.
class Value
{
public:
    using Content = std::variant<std::monostate, qint64, double, QString, QDate>;

    Value() = default;
    Value(qint64 number)
        : m_data(number)
    {
    }
    Value(int number)
        : m_data(qint64{number})
    {
    }
    Value(double number)
        : m_data(number)
    {
    }
    Value(QString text)
        : m_data(std::move(text))
    {
    }
    Value(QDate date)
        : m_data(date)
    {
    }

    bool IsNull() const noexcept { return std::holds_alternative<std::monostate>(m_data); }
    bool IsNumber() const noexcept;

    /// @return what the field holds; NULL is std::monostate.
    const Content& Get() const noexcept { return m_data; }

    /// @return the field joined to an empty text: NULL gives "", a date dd/mm/yyyy.
    QString ToText() const;

    /// @return the field as a whole number; NULL gives 0.
    /// @throws RuntimeError TypeMismatch when it is a text that is no number
    qint64 ToNumber() const;

    bool operator==(const Value&) const = default;

private:
    Content m_data;
};
