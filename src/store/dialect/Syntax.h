#pragma once

#include "store/dialect/Functions.h"
#include "store/dialect/Schema.h"

#include <QString>

#include <memory>
#include <optional>
#include <variant>
#include <vector>

/// The tree of a statement. The parser fills it from the text; the resolver then adds the tables,
/// columns and types that the names stand for (each marked "resolved").
namespace Syntax {

struct Select;

/// A word of the statement and its place, in characters from 0, for messages.
struct Name
{
    QString text;
    qsizetype place = 0;
};

/// A table named in FROM, INTO, UPDATE or DELETE.
struct Source
{
    Name name;
    const Table* table = nullptr; ///< resolved
};

struct Expression
{
    enum class Kind {
        Null,
        Number, ///< text: its digits
        Text,   ///< text: what it says
        Column, ///< text: the name; qualifier: the table before the point, or empty
        Call,   ///< function; operands: its argument, none for COUNT(*)
        Negate, ///< unary minus
        Not,
        And,        ///< two or more operands
        Or,         ///< two or more operands
        Concat,     ///< &, two or more operands
        Arithmetic, ///< text: + - * or /
        Comparison, ///< text: = <> < > <= or >=
        Like,       ///< text, pattern; negated
        IsNull,     ///< negated
        Between,    ///< value, lowest, highest; negated
        InList,     ///< value, then the list; negated
        InQuery,    ///< value; query; negated
    };

    Kind kind = Kind::Null;
    qsizetype place = 0;
    QString text;
    QString qualifier;
    bool negated = false;
    const Function* function = nullptr;
    std::vector<Expression> operands;
    std::unique_ptr<Select> query;
    int depth = 1; ///< of the tree below, itself included

    ValueType type = ValueType::Unknown; ///< resolved
    const Table* table = nullptr;        ///< resolved, of a Column
    const Column* column = nullptr;      ///< resolved, of a Column
};

struct ResultColumn
{
    Expression value;
    QString name; ///< from AS; resolved: what the recordset calls it
};

/// INNER JOIN source ON condition
struct Join
{
    Source source;
    Expression condition;
};

struct OrderTerm
{
    Expression value;
    bool descending = false;
    int resultColumn = -1; ///< resolved: the result column meant, from 0, when value is its alias
};

struct Select
{
    bool distinct = false;
    bool allColumns = false; ///< SELECT *; resolved: columns hold them
    std::vector<ResultColumn> columns;
    Source from;
    std::vector<Join> joins;
    std::optional<Expression> where;
    std::vector<Expression> groupBy;
    std::vector<OrderTerm> orderBy;
    bool aggregated = false; ///< resolved: folds rows by MAX, MIN, COUNT or GROUP BY
};

/// A column that a statement writes.
struct Target
{
    Name name;
    const Column* column = nullptr; ///< resolved
};

struct Insert
{
    Source into;
    std::vector<Target> targets;
    std::vector<Expression> values; ///< of VALUES; empty when query is there
    std::optional<Select> query;
    qsizetype valuesPlace = 0; ///< where VALUES or SELECT stands
};

struct Assignment
{
    Target target;
    Expression value;
};

struct Update
{
    Source table;
    std::vector<Assignment> assignments;
    std::optional<Expression> where;
};

struct Delete
{
    Source from;
    std::optional<Expression> where;
};

using Statement = std::variant<Select, Insert, Update, Delete>;

} // namespace Syntax
