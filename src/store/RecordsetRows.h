#pragma once

#include "store/Recordset.h"

#include <cstdint>
#include <string_view>
#include <vector>

/// Fetched rows, kept as compact as the store gave them: sixteen bytes a field, all texts one
/// behind the other in UTF-8. A text becomes a QString only when somebody reads its field, since a
/// search fetches the whole text of every song and shows none of them.
class Recordset::Rows
{
public:
    explicit Rows(QStringList names);

    /// Fields are added row by row, one per column.
    void AddNull();
    void AddNumber(qint64 number);
    void AddNumber(double number);
    void AddText(std::string_view utf8);
    void AddDate(QDate date);

    int Count() const noexcept;
    const QStringList& Names() const noexcept { return m_names; }

    /// @return a column's position from 0, -1 for an unknown name; letter case is ignored.
    int Find(QStringView name) const;

    /// @param row     from 0, below Count()
    /// @param column  from 0, below the number of names
    Value At(int row, int column) const;

private:
    struct Field
    {
        enum Kind : std::uint32_t { Null, Whole, Real, Text, Date };

        union {
            qint64 whole;     ///< of Whole; the Julian day of Date
            double real;      ///< of Real
            const char* text; ///< of Text, in m_texts
        };
        Kind kind;
        std::uint32_t length; ///< of Text, in bytes
    };

    const char* Keep(std::string_view utf8);

    QStringList m_names;
    std::vector<Field> m_fields;
    std::vector<std::unique_ptr<char[]>> m_texts;
    std::size_t m_free = 0; ///< bytes left in the last block of m_texts
    char* m_next = nullptr; ///< where they start
};
