#include "store/dialect/LinkJoin.h"

#include <algorithm>
#include <utility>

using namespace Syntax;
using Kind = Expression::Kind;

namespace {

/// @return true when the expression names nothing but columns of the table. What a sub-query names
/// is not looked at: it counts as everything.
bool StaysWithin(const Expression& expression, const Table& table)
{
    if (expression.query || (expression.kind == Kind::Column && expression.table != &table))
        return false;
    return std::all_of(expression.operands.begin(), expression.operands.end(),
                       [&table](const Expression& operand) { return StaysWithin(operand, table); });
}

bool IsKeyOf(const Expression& expression, const Table& table)
{
    return expression.kind == Kind::Column && expression.table == &table && table.Key() &&
           expression.column == table.Key();
}

/// @return true when the rows are told apart by the table's key and made of its columns alone.
bool ShowsOnly(const Select& select, const Table& table)
{
    const auto& columns = select.columns;
    const auto& terms = select.orderBy;
    return std::any_of(columns.begin(), columns.end(),
                       [&](const ResultColumn& c) { return IsKeyOf(c.value, table); }) &&
           std::all_of(columns.begin(), columns.end(),
                       [&](const ResultColumn& c) { return StaysWithin(c.value, table); }) &&
           std::all_of(terms.begin(), terms.end(), [&](const OrderTerm& t) {
               return t.resultColumn >= 0 || StaysWithin(t.value, table);
           });
}

/// @return the side of "key = link" that names the link, or nullptr.
Expression* LinkSide(Expression& condition, const Table& table, const Table& link)
{
    if (condition.kind != Kind::Comparison || condition.text != u"=")
        return nullptr;
    Expression& left = condition.operands.front();
    Expression& right = condition.operands.back();
    const auto isLink = [&link](const Expression& side) {
        return side.kind == Kind::Column && side.table == &link;
    };
    if (IsKeyOf(left, table) && isLink(right))
        return &right;
    return IsKeyOf(right, table) && isLink(left) ? &left : nullptr;
}

std::vector<Expression> TakeConditions(std::optional<Expression>& where)
{
    std::vector<Expression> conditions;
    if (where && where->kind == Kind::And)
        conditions = std::move(where->operands);
    else if (where)
        conditions.push_back(std::move(*where));
    where.reset();
    return conditions;
}

std::optional<Expression> Joined(std::vector<Expression> conditions)
{
    if (conditions.empty())
        return std::nullopt;
    if (conditions.size() == 1)
        return std::move(conditions.front());
    Expression all;
    all.kind = Kind::And;
    all.type = ValueType::Number;
    all.operands = std::move(conditions);
    return all;
}

Expression KeyColumn(const Table& table)
{
    Expression key;
    key.kind = Kind::Column;
    key.type = ValueType::Number;
    key.table = &table;
    key.column = table.Key();
    return key;
}

/// @return table.ID IN (SELECT side FROM link WHERE conditions)
Expression LinkExists(const Table& table, Source link, Expression side,
                      std::vector<Expression> conditions)
{
    auto query = std::make_unique<Select>();
    QString name = side.column->name;
    query->columns.push_back({std::move(side), std::move(name)});
    query->from = std::move(link);
    query->where = Joined(std::move(conditions));

    Expression exists;
    exists.kind = Kind::InQuery;
    exists.type = ValueType::Number;
    exists.operands.push_back(KeyColumn(table));
    exists.query = std::move(query);
    return exists;
}

/// @return true when each condition names the table or the link, none both.
bool CanPart(const std::optional<Expression>& where, const Table& table, const Table& link)
{
    const auto parts = [&](const Expression& condition) {
        return StaysWithin(condition, table) || StaysWithin(condition, link);
    };
    if (!where)
        return true;
    if (where->kind != Kind::And)
        return parts(*where);
    return std::all_of(where->operands.begin(), where->operands.end(), parts);
}

} // namespace

void FoldLinkJoin(Select& select)
{
    const Table& table = *select.from.table;
    if (!select.distinct || select.aggregated || select.joins.size() > 1 ||
        !ShowsOnly(select, table))
        return;
    if (select.joins.empty()) {
        select.distinct = false;
        return;
    }

    Join& join = select.joins.front();
    const Table& link = *join.source.table;
    Expression* side = LinkSide(join.condition, table, link);
    if (!side || !CanPart(select.where, table, link))
        return;

    std::vector<Expression> conditions = TakeConditions(select.where);
    const auto ofLink =
        std::stable_partition(conditions.begin(), conditions.end(),
                              [&](const Expression& c) { return StaysWithin(c, table); });
    std::vector<Expression> linkConditions(std::make_move_iterator(ofLink),
                                           std::make_move_iterator(conditions.end()));
    conditions.erase(ofLink, conditions.end());
    conditions.push_back(
        LinkExists(table, std::move(join.source), std::move(*side), std::move(linkConditions)));
    select.where = Joined(std::move(conditions));
    select.joins.clear();
    select.distinct = false;
}
