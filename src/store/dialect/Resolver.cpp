#include "store/dialect/Resolver.h"

#include <QStringList>

#include <algorithm>

using namespace Syntax;
using Kind = Expression::Kind;

namespace {

ValueType TypeOf(const Column& column)
{
    switch (column.type) {
    case ColumnType::Long:
    case ColumnType::Integer:
        return ValueType::Number;
    case ColumnType::Text:
        return ValueType::Text;
    case ColumnType::Date:
        return ValueType::Date;
    case ColumnType::Other:
        break;
    }
    return ValueType::Unknown;
}

/// @return the type of an expression whose operands know theirs already.
ValueType TypeOf(const Expression& expression)
{
    switch (expression.kind) {
    case Kind::Null:
        return ValueType::Null;
    case Kind::Text:
    case Kind::Concat:
        return ValueType::Text;
    case Kind::Column:
        return TypeOf(*expression.column);
    case Kind::Call:
        return expression.function->result == ValueType::Unknown ? expression.operands.front().type
                                                                 : expression.function->result;
    case Kind::Arithmetic:
        if (expression.text == u"+") {
            const ValueType type = expression.operands.front().type;
            return type == expression.operands.back().type ? type : ValueType::Unknown;
        }
        return ValueType::Number;
    default:
        return ValueType::Number;
    }
}

bool HoldsAggregate(const Expression& expression)
{
    return (expression.kind == Kind::Call && expression.function->aggregate) ||
           std::any_of(expression.operands.begin(), expression.operands.end(), HoldsAggregate);
}

QString TableNames(const std::vector<const Source*>& sources)
{
    QStringList names;
    for (const Source* source : sources)
        names.append(source->table->name);
    return names.join(u" or ");
}

/// A column keeps its own name; a computed one is called after its place.
QString ResultName(const ResultColumn& column, std::size_t position)
{
    if (!column.name.isEmpty())
        return column.name;
    if (column.value.kind == Kind::Column)
        return column.value.column->name;
    return u"Expr" + QString::number(1000 + position);
}

void ExpandAllColumns(Select& select, const std::vector<const Source*>& sources)
{
    for (const Source* source : sources) {
        for (const Column& column : source->table->columns) {
            Expression value;
            value.kind = Kind::Column;
            value.place = source->name.place;
            value.qualifier = source->table->name;
            value.text = column.name;
            select.columns.push_back({std::move(value), {}});
        }
    }
}

} // namespace

void Resolver::Resolve(Statement& statement) const
{
    std::visit([this](auto& concrete) { Resolve(concrete); }, statement);
}

void Resolver::Resolve(Select& select, const Scope* outer) const
{
    const Scope scope = OpenSources(select, outer);
    if (select.allColumns)
        ExpandAllColumns(select, scope.sources);
    for (Join& join : select.joins)
        Resolve(join.condition, scope);
    for (ResultColumn& column : select.columns)
        Resolve(column.value, scope);
    Resolve(select.where, scope);
    for (Expression& term : select.groupBy)
        Resolve(term, scope);
    for (OrderTerm& term : select.orderBy)
        ResolveOrder(term, select, scope);
    for (std::size_t i = 0; i < select.columns.size(); ++i)
        select.columns[i].name = ResultName(select.columns[i], i);
    select.aggregated =
        !select.groupBy.empty() ||
        std::any_of(select.columns.begin(), select.columns.end(),
                    [](const ResultColumn& column) { return HoldsAggregate(column.value); });
}

void Resolver::Resolve(Insert& insert) const
{
    Resolve(insert.into);
    for (Target& target : insert.targets)
        Resolve(target, *insert.into.table);
    if (insert.query) {
        Resolve(*insert.query);
        CheckCount(insert, insert.query->columns.size());
        return;
    }
    CheckCount(insert, insert.values.size());
    for (Expression& value : insert.values)
        Resolve(value, Scope{});
}

void Resolver::CheckCount(const Insert& insert, std::size_t values) const
{
    if (values != insert.targets.size())
        m_complaint.Expected(QString::number(insert.targets.size()) + u" values",
                             insert.valuesPlace, QString::number(values));
}

void Resolver::Resolve(Update& update) const
{
    Resolve(update.table);
    const Scope scope{{&update.table}};
    for (Assignment& assignment : update.assignments) {
        Resolve(assignment.target, *update.table.table);
        Resolve(assignment.value, scope);
    }
    Resolve(update.where, scope);
}

void Resolver::Resolve(Delete& deletion) const
{
    Resolve(deletion.from);
    Resolve(deletion.where, Scope{{&deletion.from}});
}

Resolver::Scope Resolver::OpenSources(Select& select, const Scope* outer) const
{
    Scope scope{{}, outer};
    const auto open = [this, &scope](Source& source) {
        Resolve(source);
        for (const Source* earlier : scope.sources) {
            if (earlier->table == source.table)
                m_complaint.Expected(QStringLiteral("each table once in FROM"), source.name.place,
                                     source.name.text);
        }
        scope.sources.push_back(&source);
    };
    open(select.from);
    for (Join& join : select.joins)
        open(join.source);
    return scope;
}

void Resolver::Resolve(Source& source) const
{
    source.table = m_schema.Find(source.name.text);
    if (!source.table)
        m_complaint.Expected(QStringLiteral("the name of a table"), source.name.place,
                             source.name.text);
}

void Resolver::Resolve(Target& target, const Table& table) const
{
    const std::optional<int> found = table.Find(target.name.text);
    if (!found)
        m_complaint.Expected(u"a column of " + table.name, target.name.place, target.name.text);
    target.column = &table.columns[static_cast<std::size_t>(*found)];
}

void Resolver::Resolve(std::optional<Expression>& expression, const Scope& scope) const
{
    if (expression)
        Resolve(*expression, scope);
}

void Resolver::Resolve(Expression& expression, const Scope& scope) const
{
    for (Expression& operand : expression.operands)
        Resolve(operand, scope);
    if (expression.query)
        Resolve(*expression.query, &scope);
    if (expression.query && expression.query->columns.size() != 1)
        m_complaint.Expected(QStringLiteral("one column in the query of IN"), expression.place,
                             QString::number(expression.query->columns.size()));
    if (expression.kind == Kind::Column)
        ResolveColumn(expression, scope);
    expression.type = TypeOf(expression);
}

void Resolver::ResolveColumn(Expression& expression, const Scope& scope) const
{
    for (const Scope* at = &scope; at; at = at->outer) {
        const Source* source = FindSource(expression, *at);
        if (!source)
            continue;
        const int column = *source->table->Find(expression.text);
        expression.table = source->table;
        expression.column = &source->table->columns[static_cast<std::size_t>(column)];
        return;
    }
    FailColumn(expression, scope);
}

/// @return the one source of the scope that has the column, or nullptr.
const Source* Resolver::FindSource(const Expression& name, const Scope& scope) const
{
    const Source* found = nullptr;
    for (const Source* source : scope.sources) {
        const bool meant = name.qualifier.isEmpty() ||
                           name.qualifier.compare(source->table->name, Qt::CaseInsensitive) == 0;
        if (!meant || !source->table->Find(name.text))
            continue;
        if (found)
            m_complaint.Expected(u"a table before the column, which " + found->table->name +
                                     u" and " + source->table->name + u" have",
                                 name.place, name.text);
        found = source;
    }
    return found;
}

void Resolver::FailColumn(const Expression& name, const Scope& scope) const
{
    const QString written =
        name.qualifier.isEmpty() ? name.text : QString(name.qualifier + u'.' + name.text);
    m_complaint.Expected(scope.sources.empty()
                             ? QStringLiteral("a value without columns")
                             : QString(u"a column of " + TableNames(scope.sources)),
                         name.place, written);
}

/// A name in ORDER BY means a column of FROM before it means an alias: a statement may sort by the
/// date itself while it shows it under the same name in another form. A number counts the result
/// columns from 1.
void Resolver::ResolveOrder(OrderTerm& term, const Select& select, const Scope& scope) const
{
    const auto is = [&select](std::size_t i, const QString& alias) {
        return select.columns[i].name.compare(alias, Qt::CaseInsensitive) == 0;
    };
    const Expression& value = term.value;
    const bool bareName = value.kind == Kind::Column && value.qualifier.isEmpty();
    if (bareName && !FindSource(value, scope)) {
        for (std::size_t i = 0; i < select.columns.size(); ++i) {
            if (is(i, value.text))
                term.resultColumn = static_cast<int>(i);
        }
    } else if (value.kind == Kind::Number) {
        term.resultColumn = value.text.toInt() - 1;
        if (term.resultColumn < 0 ||
            static_cast<std::size_t>(term.resultColumn) >= select.columns.size())
            m_complaint.Expected(QStringLiteral("the number of a result column"), value.place,
                                 value.text);
    }
    if (term.resultColumn < 0)
        Resolve(term.value, scope);
}
