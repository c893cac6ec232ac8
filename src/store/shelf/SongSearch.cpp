#include "store/shelf/SongSearch.h"

#include <algorithm>

using namespace Syntax;
using Kind = Expression::Kind;

namespace {

using Field = SongSearch::Field;

bool IsNamed(const QString& name, QStringView wanted)
{
    return wanted.compare(name, Qt::CaseInsensitive) == 0;
}

bool IsText(const Column& column)
{
    return column.type == ColumnType::Text;
}

bool IsNumber(const Column& column)
{
    return column.type == ColumnType::Long || column.type == ColumnType::Integer;
}

/// Columns that another tool declared in a way of its own compare in a way of their own.
std::optional<Field> FieldOf(const Column& column)
{
    static const struct
    {
        QStringView name;
        Field field;
        bool (*fits)(const Column&);
    } fields[] = {
        {u"ID", Field::Id, IsNumber},
        {u"TITULO", Field::Title, IsText},
        {u"REFERENCIA", Field::Reference, IsText},
        {u"MUSICA", Field::Text, IsText},
        {u"MUSICA2", Field::SecondText, IsText},
        {u"TOM", Field::Key, IsText},
        {u"VARIACAO", Field::Variation, IsText},
        {u"CATEGORIA", Field::Category, IsNumber},
        {u"CONTADOR", Field::Count, IsNumber},
    };
    for (const auto& known : fields) {
        if (IsNamed(column.name, known.name) && known.fits(column))
            return known.field;
    }
    return std::nullopt;
}

/// @return the field of MUSICA that the expression is.
std::optional<Field> FieldOf(const Expression& expression, const Table& songs)
{
    if (expression.kind != Kind::Column || expression.table != &songs)
        return std::nullopt;
    return FieldOf(*expression.column);
}

/// @return whether the expression is TITULO & ' - ' & REFERENCIA
bool IsLabel(const Expression& expression, const Table& songs)
{
    const auto& parts = expression.operands;
    return expression.kind == Kind::Concat && parts.size() == 3 &&
           FieldOf(parts[0], songs) == Field::Title && parts[1].kind == Kind::Text &&
           parts[1].text == u" - " && FieldOf(parts[2], songs) == Field::Reference;
}

bool IsOne(const Expression& expression)
{
    return expression.kind == Kind::Number && expression.text == u"1";
}

bool IsLinkColumn(const Expression& expression, const Table& links, QStringView name)
{
    return expression.kind == Kind::Column && expression.table == &links &&
           IsNamed(expression.column->name, name) && IsNumber(*expression.column);
}

/// @return the numbers of "value IN (1, 2)", which have to be whole.
std::optional<std::vector<qint64>> NumbersOf(const Expression& list)
{
    std::vector<qint64> numbers;
    for (std::size_t i = 1; i < list.operands.size(); ++i) {
        const Expression& member = list.operands[i];
        bool isWhole = false;
        const qint64 number = member.text.toLongLong(&isWhole);
        if (member.kind != Kind::Number || !isWhole)
            return std::nullopt;
        numbers.push_back(number);
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

/// Reads one query; every step answers false where the query is another one.
class Reader
{
public:
    explicit Reader(const Select& select)
        : m_select(select)
        , m_songs(*select.from.table)
    {
    }

    std::optional<SongSearch> Read()
    {
        if (m_select.aggregated || !m_select.joins.empty() || !IsNamed(m_songs.name, u"MUSICA") ||
            !ReadColumns() || !ReadWhere() || !ReadOrder() || !ReadDistinct() || !HasItsColumns())
            return std::nullopt;
        return std::move(m_search);
    }

private:
    bool ReadColumns()
    {
        for (const ResultColumn& column : m_select.columns) {
            const auto field = IsLabel(column.value, m_songs) ? Field::Label
                               : IsOne(column.value)          ? Field::One
                                                              : FieldOf(column.value, m_songs);
            if (!field)
                return false;
            m_search.columns.push_back(*field);
            m_search.names.append(column.name);
        }
        return true;
    }

    bool ReadWhere()
    {
        if (!m_select.where)
            return true;
        if (m_select.where->kind != Kind::And)
            return ReadCondition(*m_select.where);
        const auto& conditions = m_select.where->operands;
        return std::all_of(conditions.begin(), conditions.end(),
                           [this](const Expression& c) { return ReadCondition(c); });
    }

    bool ReadCondition(const Expression& condition)
    {
        if (condition.negated)
            return false;
        switch (condition.kind) {
        case Kind::InList:
            return ReadNumbers(condition);
        case Kind::Like:
            return ReadPattern(condition);
        case Kind::InQuery:
            return ReadLinks(condition);
        default:
            return false;
        }
    }

    bool ReadNumbers(const Expression& list)
    {
        const auto field = FieldOf(list.operands.front(), m_songs);
        if (field != Field::Category && field != Field::Id)
            return false;
        auto& numbers = field == Field::Id ? m_search.ids : m_search.categories;
        if (numbers)
            return false;
        numbers = NumbersOf(list);
        return numbers.has_value();
    }

    bool ReadPattern(const Expression& like)
    {
        const auto field = FieldOf(like.operands.front(), m_songs);
        const Expression& pattern = like.operands.back();
        if (pattern.kind != Kind::Text ||
            (field != Field::Title && field != Field::Reference && field != Field::Text))
            return false;
        m_search.patterns.push_back({*field, pattern.text.toUtf8()});
        return true;
    }

    bool ReadLinks(const Expression& exists)
    {
        if (m_search.links || FieldOf(exists.operands.front(), m_songs) != Field::Id)
            return false;
        const Select& query = *exists.query;
        const Table& links = *query.from.table;
        if (query.aggregated || !query.joins.empty() || !IsNamed(links.name, u"TEMA_MUSICA") ||
            !IsLinkColumn(query.columns.front().value, links, u"ID_MUSICA"))
            return false;
        m_search.links.emplace();
        if (!query.where)
            return true;
        if (query.where->kind != Kind::InList || query.where->negated ||
            !IsLinkColumn(query.where->operands.front(), links, u"ID_TEMA"))
            return false;
        m_search.links->themes = NumbersOf(*query.where);
        return m_search.links->themes.has_value();
    }

    bool ReadOrder()
    {
        using Order = SongSearch::Order;
        const auto& terms = m_select.orderBy;
        if (m_search.ids) {
            m_search.order = Order::Id;
            return terms.empty();
        }
        if (terms.empty() || terms.size() > 2 || terms.back().descending ||
            std::any_of(terms.begin(), terms.end(),
                        [](const OrderTerm& term) { return term.resultColumn >= 0; }))
            return false;
        const auto field = FieldOf(terms.back().value, m_songs);
        if (terms.size() == 2) {
            m_search.order = Order::MostPlayed;
            return field == Field::Title && terms.front().descending &&
                   FieldOf(terms.front().value, m_songs) == Field::Count;
        }
        m_search.order = field == Field::Title       ? Order::Title
                         : field == Field::Reference ? Order::Reference
                                                     : Order::Label;
        return m_search.order != Order::Label || IsLabel(terms.back().value, m_songs);
    }

    bool ReadDistinct()
    {
        m_search.eachReferenceOnce = m_select.distinct;
        return !m_select.distinct ||
               (m_search.order == SongSearch::Order::Reference &&
                m_search.columns == std::vector<Field>{Field::One, Field::Reference});
    }

    /// No search shows the second text.
    bool HasItsColumns() const
    {
        const auto& columns = m_search.columns;
        return m_search.ids ||
               std::find(columns.begin(), columns.end(), Field::SecondText) == columns.end();
    }

    const Select& m_select;
    const Table& m_songs;
    SongSearch m_search;
};

} // namespace

std::optional<SongSearch> SongSearch::Recognise(const Statement& statement)
{
    const auto* select = std::get_if<Select>(&statement);
    return select ? Reader(*select).Read() : std::nullopt;
}
