#include "store/dialect/Writer.h"

#include "store/dialect/Names.h"

#include <algorithm>
#include <utility>

using namespace Syntax;
using Kind = Expression::Kind;

namespace {

bool IsColumn(const Expression& expression, const Table& table, const Column& column)
{
    return expression.kind == Kind::Column && expression.table == &table &&
           expression.column == &column;
}

bool Shows(const Select& select, const Table& table, const Column& column)
{
    return std::any_of(
        select.columns.begin(), select.columns.end(),
        [&](const ResultColumn& shown) { return IsColumn(shown.value, table, column); });
}

bool SortsBy(const Select& select, const Table& table, const Column& column)
{
    return std::any_of(select.orderBy.begin(), select.orderBy.end(), [&](const OrderTerm& term) {
        return term.resultColumn < 0 && IsColumn(term.value, table, column);
    });
}

std::vector<const Table*> TablesOf(const Select& select)
{
    std::vector<const Table*> tables{select.from.table};
    for (const Join& join : select.joins)
        tables.push_back(join.source.table);
    return tables;
}

bool IsTextual(ValueType type)
{
    return type == ValueType::Text || type == ValueType::Unknown;
}

} // namespace

Translation Writer::Write(const Statement& statement, Compared numbers)
{
    Writer writer;
    writer.m_numbers = numbers;
    writer.m_out.isQuery = std::holds_alternative<Select>(statement);
    std::visit([&writer](const auto& concrete) { writer.Write(concrete); }, statement);
    return std::move(writer.m_out);
}

void Writer::Write(const Select& select)
{
    WriteBody(select, nullptr);
    WriteOrder(select);
}

void Writer::Write(const Insert& insert)
{
    m_out.sql += "INSERT INTO " + Quoted(insert.into.table->name) + " (";
    WriteTargets(insert.targets);
    m_out.sql += ") ";
    if (insert.query) {
        WriteBody(*insert.query, &insert.targets);
        WriteOrder(*insert.query);
        return;
    }
    m_out.sql += "VALUES (";
    for (std::size_t i = 0; i < insert.values.size(); ++i) {
        if (i > 0)
            m_out.sql += ", ";
        WriteAssigned(insert.values[i], *insert.targets[i].column);
    }
    m_out.sql += ')';
}

void Writer::Write(const Update& update)
{
    m_out.sql += "UPDATE " + Quoted(update.table.table->name) + " SET ";
    for (const Assignment& assignment : update.assignments) {
        if (&assignment != &update.assignments.front())
            m_out.sql += ", ";
        m_out.sql += Quoted(assignment.target.column->name) + " = ";
        WriteAssigned(assignment.value, *assignment.target.column);
    }
    WriteWhere(update.where);
}

void Writer::Write(const Delete& deletion)
{
    m_out.sql += "DELETE FROM " + Quoted(deletion.from.table->name);
    WriteWhere(deletion.where);
}

/// Everything but ORDER BY. @param targets  the columns that an INSERT puts the rows into, or
/// nullptr
void Writer::WriteBody(const Select& select, const std::vector<Target>* targets)
{
    m_out.sql += select.distinct ? "SELECT DISTINCT " : "SELECT ";
    WriteResultColumns(select, targets);
    WriteSources(select);
    WriteWhere(select.where);
    for (const Expression& term : select.groupBy) {
        m_out.sql += &term == &select.groupBy.front() ? " GROUP BY " : ", ";
        WriteCollated(term, IsTextual(term.type));
    }
}

void Writer::WriteResultColumns(const Select& select, const std::vector<Target>* targets)
{
    for (std::size_t i = 0; i < select.columns.size(); ++i) {
        const ResultColumn& column = select.columns[i];
        if (i > 0)
            m_out.sql += ", ";
        if (targets)
            WriteAssigned(column.value, *(*targets)[i].column);
        else
            WriteCollated(column.value, select.distinct && IsTextual(column.value.type));
        m_out.sql += " AS " + Quoted(column.name);
    }
}

void Writer::WriteSources(const Select& select)
{
    m_out.sql += " FROM " + Quoted(select.from.table->name);
    for (const Join& join : select.joins) {
        m_out.sql += " INNER JOIN " + Quoted(join.source.table->name) + " ON ";
        Write(join.condition);
    }
}

void Writer::WriteOrder(const Select& select)
{
    const char* separator = " ORDER BY ";
    for (const OrderTerm& term : select.orderBy) {
        m_out.sql += std::exchange(separator, ", ");
        WriteOrderTerm(term, select);
    }
    const QByteArray ties = TieBreaks(select);
    if (!ties.isEmpty())
        m_out.sql += separator + ties;
}

/// What is already computed as a result column is sorted by its position.
void Writer::WriteOrderTerm(const OrderTerm& term, const Select& select)
{
    int position = term.resultColumn;
    const bool computed = position < 0 && term.value.kind != Kind::Column;
    const Translation written = computed ? Fragment(term.value) : Translation{};
    for (std::size_t i = 0; computed && position < 0 && i < select.columns.size(); ++i) {
        const Translation shown = Fragment(select.columns[i].value);
        if (shown.sql == written.sql && shown.values == written.values)
            position = static_cast<int>(i);
    }
    if (position < 0) {
        WriteCollated(term.value, IsTextual(term.value.type));
    } else {
        m_out.sql += QByteArray::number(position + 1);
        if (IsTextual(select.columns[static_cast<std::size_t>(position)].value.type))
            m_out.sql += QByteArray(" COLLATE ") + Names::Collation;
    }
    if (term.descending)
        m_out.sql += " DESC";
}

/// Rows that the statement leaves unordered come in the order of the tables' identifiers, of a
/// link's place where there is none. DISTINCT can be ordered only by identifiers that it shows:
/// any other would have to be chosen among the rows that it folds.
QByteArray Writer::TieBreaks(const Select& select) const
{
    QByteArray ties;
    if (select.aggregated)
        return ties;
    for (const Table* table : TablesOf(select)) {
        const Column* key = table->Key();
        if (select.distinct && !(key && Shows(select, *table, *key)))
            continue;
        if (key && SortsBy(select, *table, *key))
            continue;
        if (!ties.isEmpty())
            ties += ", ";
        ties += key ? QuotedColumn(*table, *key) : Quoted(table->name) + ".rowid";
    }
    return ties;
}

void Writer::WriteWhere(const std::optional<Expression>& where)
{
    if (!where)
        return;
    m_out.sql += " WHERE ";
    Write(*where);
}

void Writer::WriteTargets(const std::vector<Target>& targets)
{
    for (const Target& target : targets) {
        if (&target != &targets.front())
            m_out.sql += ", ";
        m_out.sql += Quoted(target.column->name);
    }
}

/// SQLite takes any value into any column; what the column cannot hold is refused by a function
/// around the value.
void Writer::WriteAssigned(const Expression& value, const Column& column)
{
    const char* guard = nullptr;
    if (column.type == ColumnType::Long)
        guard = Names::Long;
    else if (column.type == ColumnType::Integer)
        guard = Names::Integer;
    else if (column.type == ColumnType::Date && value.type != ValueType::Date)
        guard = Names::Cdate;

    const bool isGuarded = guard && value.kind != Kind::Null;
    if (isGuarded)
        m_out.sql += QByteArray(guard) + '(';
    if (!Bind(value))
        Write(value);
    if (isGuarded)
        m_out.sql += ')';
}

QByteArray Writer::Quoted(const QString& name)
{
    return '"' + name.toUtf8().replace('"', "\"\"") + '"';
}

QByteArray Writer::QuotedColumn(const Table& table, const Column& column)
{
    return Quoted(table.name) + '.' + Quoted(column.name);
}

Translation Writer::Fragment(const Expression& expression)
{
    Writer writer;
    writer.Write(expression);
    return std::move(writer.m_out);
}
