#pragma once

#include "store/RecordsetRows.h"
#include "store/TextPool.h"

#include <cstdint>
#include <string_view>
#include <vector>

/// Fetched rows, kept as compact as the store gave them: sixteen bytes a field, all texts one
/// behind the other in UTF-8. A text becomes a QString only when somebody reads its field.
class FetchedRows final : public Recordset::Rows
{
public:
    using Rows::Rows;

    /// Fields are added row by row, one per column.
    void AddNull();
    void AddNumber(qint64 number);
    void AddNumber(double number);
    void AddText(std::string_view utf8);
    void AddDate(QDate date);

    int Count() const noexcept override;
    Value At(int row, int column) const override;
    std::optional<QByteArray> Utf8At(int row, int column) const override;

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

    const Field& FieldAt(int row, int column) const;

    std::vector<Field> m_fields;
    TextPool m_texts;
};
