#pragma once

#include <QString>

#include <optional>
#include <vector>

/// What a column holds decides what may be stored in it and how a field of it reads.
enum class ColumnType { Long, Integer, Text, Date, Other };

struct Column
{
    QString name;
    ColumnType type = ColumnType::Other;
};

struct Table
{
    QString name;
    std::vector<Column> columns;

    /// @return the position of a column from 0; letter case is ignored.
    std::optional<int> Find(QStringView column) const;

    /// @return the column ID, by which the rows are told apart; nullptr in a link table.
    const Column* Key() const;
};

/// The tables of the open catalogue.
class Schema
{
public:
    void Add(Table table);

    /// @return the table, or nullptr; letter case is ignored.
    const Table* Find(QStringView table) const;

private:
    std::vector<Table> m_tables;
};
