#include "store/dialect/Schema.h"

#include <algorithm>
#include <utility>

std::optional<int> Table::Find(QStringView column) const
{
    const auto found = std::find_if(columns.begin(), columns.end(), [column](const Column& c) {
        return column.compare(c.name, Qt::CaseInsensitive) == 0;
    });
    if (found == columns.end())
        return std::nullopt;
    return static_cast<int>(found - columns.begin());
}

const Column* Table::Key() const
{
    const std::optional<int> key = Find(u"ID");
    return key ? &columns[static_cast<std::size_t>(*key)] : nullptr;
}

void Schema::Add(Table table)
{
    m_tables.push_back(std::move(table));
}

const Table* Schema::Find(QStringView table) const
{
    const auto found = std::find_if(m_tables.begin(), m_tables.end(), [table](const Table& t) {
        return table.compare(t.name, Qt::CaseInsensitive) == 0;
    });
    return found == m_tables.end() ? nullptr : &*found;
}
