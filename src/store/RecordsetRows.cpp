#include "store/RecordsetRows.h"

#include <algorithm>
#include <cstring>

namespace {

/// Texts are copied once, into blocks that never move. A longer text gets a block of its own.
constexpr std::size_t FirstBlock = std::size_t{4} * 1024;
constexpr std::size_t LargestBlock = std::size_t{1024} * 1024;

} // namespace

Recordset::Rows::Rows(QStringList names)
    : m_names(std::move(names))
{
}

void Recordset::Rows::AddNull()
{
    Field field{};
    field.kind = Field::Null;
    m_fields.push_back(field);
}

void Recordset::Rows::AddNumber(qint64 number)
{
    Field field{};
    field.kind = Field::Whole;
    field.whole = number;
    m_fields.push_back(field);
}

void Recordset::Rows::AddNumber(double number)
{
    Field field{};
    field.kind = Field::Real;
    field.real = number;
    m_fields.push_back(field);
}

void Recordset::Rows::AddText(std::string_view utf8)
{
    Field field{};
    field.kind = Field::Text;
    field.text = Keep(utf8);
    field.length = static_cast<std::uint32_t>(utf8.size());
    m_fields.push_back(field);
}

void Recordset::Rows::AddDate(QDate date)
{
    Field field{};
    field.kind = Field::Date;
    field.whole = date.toJulianDay();
    m_fields.push_back(field);
}

int Recordset::Rows::Count() const noexcept
{
    if (m_names.isEmpty())
        return 0;
    return static_cast<int>(m_fields.size() / static_cast<std::size_t>(m_names.size()));
}

int Recordset::Rows::Find(QStringView name) const
{
    for (int i = 0; i < m_names.size(); ++i) {
        if (name.compare(m_names[i], Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

Value Recordset::Rows::At(int row, int column) const
{
    const auto width = static_cast<std::size_t>(m_names.size());
    const Field& field =
        m_fields[static_cast<std::size_t>(row) * width + static_cast<std::size_t>(column)];
    switch (field.kind) {
    case Field::Null:
        return {};
    case Field::Whole:
        return field.whole;
    case Field::Real:
        return field.real;
    case Field::Text:
        return QString::fromUtf8(field.text, static_cast<qsizetype>(field.length));
    case Field::Date:
        return QDate::fromJulianDay(field.whole);
    }
    return {};
}

const char* Recordset::Rows::Keep(std::string_view utf8)
{
    if (utf8.empty())
        return "";
    if (utf8.size() > m_free) {
        // Small results take small blocks, large ones few.
        const std::size_t usual =
            std::min(LargestBlock, FirstBlock << std::min<std::size_t>(m_texts.size(), 8));
        const std::size_t size = std::max(usual, utf8.size());
        // Not make_unique, which would write zeros first.
        m_texts.emplace_back(new char[size]);
        m_next = m_texts.back().get();
        m_free = size;
    }
    char* const kept = m_next;
    std::memcpy(kept, utf8.data(), utf8.size());
    m_next += utf8.size();
    m_free -= utf8.size();
    return kept;
}
