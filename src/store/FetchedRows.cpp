#include "store/FetchedRows.h"

#include "store/text/Utf8.h"

void FetchedRows::AddNull()
{
    Field field{};
    field.kind = Field::Null;
    m_fields.push_back(field);
}

void FetchedRows::AddNumber(qint64 number)
{
    Field field{};
    field.kind = Field::Whole;
    field.whole = number;
    m_fields.push_back(field);
}

void FetchedRows::AddNumber(double number)
{
    Field field{};
    field.kind = Field::Real;
    field.real = number;
    m_fields.push_back(field);
}

void FetchedRows::AddText(std::string_view utf8)
{
    Field field{};
    field.kind = Field::Text;
    field.text = m_texts.Keep(utf8).data();
    field.length = static_cast<std::uint32_t>(utf8.size());
    m_fields.push_back(field);
}

void FetchedRows::AddDate(QDate date)
{
    Field field{};
    field.kind = Field::Date;
    field.whole = date.toJulianDay();
    m_fields.push_back(field);
}

int FetchedRows::Count() const noexcept
{
    if (Names().isEmpty())
        return 0;
    return static_cast<int>(m_fields.size() / static_cast<std::size_t>(Names().size()));
}

const FetchedRows::Field& FetchedRows::FieldAt(int row, int column) const
{
    const auto width = static_cast<std::size_t>(Names().size());
    return m_fields[static_cast<std::size_t>(row) * width + static_cast<std::size_t>(column)];
}

std::optional<QByteArray> FetchedRows::Utf8At(int row, int column) const
{
    const Field& field = FieldAt(row, column);
    if (field.kind == Field::Text)
        return QByteArray::fromRawData(field.text, static_cast<qsizetype>(field.length));
    return Rows::Utf8At(row, column);
}

Value FetchedRows::At(int row, int column) const
{
    const Field& field = FieldAt(row, column);
    switch (field.kind) {
    case Field::Null:
        return {};
    case Field::Whole:
        return field.whole;
    case Field::Real:
        return field.real;
    case Field::Text:
        return Utf8::ToText({field.text, field.length});
    case Field::Date:
        return QDate::fromJulianDay(field.whole);
    }
    return {};
}
