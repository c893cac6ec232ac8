#include "store/shelf/SameSong.h"

using namespace Syntax;
using Kind = Expression::Kind;

namespace {

bool IsColumn(const Expression& expression, const Table& songs, QStringView name, bool isText)
{
    if (expression.kind != Kind::Column || expression.table != &songs ||
        name.compare(expression.column->name, Qt::CaseInsensitive) != 0)
        return false;
    const ColumnType type = expression.column->type;
    return isText ? type == ColumnType::Text
                  : type == ColumnType::Long || type == ColumnType::Integer;
}

/// @return the text that "column = 'text'" compares with, or nullptr
const Expression* TextComparedWith(const Expression& comparison, const Table& songs,
                                   QStringView column)
{
    if (comparison.kind != Kind::Comparison || comparison.text != u"=" ||
        !IsColumn(comparison.operands.front(), songs, column, true) ||
        comparison.operands.back().kind != Kind::Text)
        return nullptr;
    return &comparison.operands.back();
}

/// @return the query when it is "SELECT ID FROM table WHERE ...", or nullptr
const Select* AsIdQuery(const Statement& statement, QStringView table)
{
    const auto* select = std::get_if<Select>(&statement);
    if (!select || select->distinct || select->aggregated || !select->joins.empty() ||
        !select->orderBy.empty() || select->columns.size() != 1 || !select->where ||
        table.compare(select->from.table->name, Qt::CaseInsensitive) != 0 ||
        !IsColumn(select->columns.front().value, *select->from.table, u"ID", false))
        return nullptr;
    return select;
}

} // namespace

std::optional<SameTheme> SameTheme::Recognise(const Statement& statement)
{
    const Select* const select = AsIdQuery(statement, u"TEMA");
    if (!select)
        return std::nullopt;
    const Expression* const text =
        TextComparedWith(*select->where, *select->from.table, u"DESCRICAO");
    if (!text)
        return std::nullopt;
    return SameTheme{text->text, select->columns.front().name, text->place};
}

std::optional<SameSong> SameSong::Recognise(const Statement& statement)
{
    const Select* const select = AsIdQuery(statement, u"MUSICA");
    if (!select || select->where->kind != Kind::And || select->where->operands.size() != 2)
        return std::nullopt;
    const Table& songs = *select->from.table;
    const auto& conditions = select->where->operands;
    const Expression* const title = TextComparedWith(conditions[0], songs, u"TITULO");
    const Expression* const reference = TextComparedWith(conditions[1], songs, u"REFERENCIA");
    if (!title || !reference)
        return std::nullopt;
    return SameSong{title->text, reference->text, select->columns.front().name, title->place,
                    reference->place};
}
