#include "store/shelf/SongThemes.h"

using namespace Syntax;
using Kind = Expression::Kind;

namespace {

bool IsNamed(const QString& name, QStringView wanted)
{
    return wanted.compare(name, Qt::CaseInsensitive) == 0;
}

bool IsColumn(const Expression& expression, const Table& table, QStringView name)
{
    return expression.kind == Kind::Column && expression.table == &table &&
           IsNamed(expression.column->name, name);
}

bool IsNumberColumn(const Expression& expression, const Table& table, QStringView name)
{
    if (!IsColumn(expression, table, name))
        return false;
    const ColumnType type = expression.column->type;
    return type == ColumnType::Long || type == ColumnType::Integer;
}

bool IsEquality(const Expression& expression)
{
    return expression.kind == Kind::Comparison && expression.text == u"=";
}

/// @return whether the only join is TEMA INNER JOIN TEMA_MUSICA ON TEMA.ID = TEMA_MUSICA.ID_TEMA
bool JoinsThemesWithLinks(const Select& select)
{
    if (select.joins.size() != 1)
        return false;
    const Join& join = select.joins.front();
    const Table& themes = *select.from.table;
    const Table& links = *join.source.table;
    const auto& sides = join.condition.operands;
    return IsNamed(themes.name, u"TEMA") && IsNamed(links.name, u"TEMA_MUSICA") &&
           IsEquality(join.condition) && IsNumberColumn(sides.front(), themes, u"ID") &&
           IsNumberColumn(sides.back(), links, u"ID_TEMA");
}

bool ShowsNamesAlone(const Select& select)
{
    if (select.columns.size() != 1)
        return false;
    const Expression& shown = select.columns.front().value;
    return IsColumn(shown, *select.from.table, u"DESCRICAO") &&
           shown.column->type == ColumnType::Text;
}

} // namespace

std::optional<SongThemes> SongThemes::Recognise(const Statement& statement)
{
    const auto* select = std::get_if<Select>(&statement);
    if (!select || select->distinct || select->aggregated || !select->orderBy.empty() ||
        !select->where || !JoinsThemesWithLinks(*select) || !ShowsNamesAlone(*select))
        return std::nullopt;
    const Expression& where = *select->where;
    if (!IsEquality(where) ||
        !IsNumberColumn(where.operands.front(), *select->joins.front().source.table, u"ID_MUSICA"))
        return std::nullopt;
    const Expression& number = where.operands.back();
    bool isWhole = false;
    const qint64 song = number.text.toLongLong(&isWhole);
    if (number.kind != Kind::Number || !isWhole)
        return std::nullopt;
    return SongThemes{song, select->columns.front().name, number.place};
}
