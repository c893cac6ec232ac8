#include "store/shelf/TextChange.h"

#include <algorithm>

using namespace Syntax;
using Kind = Expression::Kind;

namespace {

bool IsNamed(const QString& name, QStringView wanted)
{
    return wanted.compare(name, Qt::CaseInsensitive) == 0;
}

bool WritesText(const Update& update)
{
    return std::any_of(update.assignments.begin(), update.assignments.end(),
                       [](const Assignment& change) {
                           const QString& column = change.target.column->name;
                           return IsNamed(column, u"MUSICA") || IsNamed(column, u"MUSICA2");
                       });
}

/// @return the number of "ID = number"
std::optional<qint64> OnlyId(const std::optional<Expression>& where)
{
    if (!where || where->kind != Kind::Comparison || where->negated || where->text != u"=")
        return std::nullopt;
    const Expression& column = where->operands.front();
    const Expression& number = where->operands.back();
    bool isWhole = false;
    const qint64 id = number.text.toLongLong(&isWhole);
    if (column.kind != Kind::Column || !IsNamed(column.column->name, u"ID") ||
        number.kind != Kind::Number || !isWhole)
        return std::nullopt;
    return id;
}

} // namespace

TextChange::TextChange(const Statement& statement)
{
    if (const auto* update = std::get_if<Update>(&statement)) {
        m_isThere = IsNamed(update->table.table->name, u"MUSICA") && WritesText(*update);
        m_song = OnlyId(update->where);
    } else if (const auto* deletion = std::get_if<Delete>(&statement)) {
        m_isThere = IsNamed(deletion->from.table->name, u"MUSICA");
        m_song = OnlyId(deletion->where);
    }
}
