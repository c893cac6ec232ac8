// The half of the writer that writes expressions.

#include "store/dialect/Names.h"
#include "store/dialect/Writer.h"

#include <algorithm>
#include <utility>

using namespace Syntax;
using Kind = Expression::Kind;

namespace {

/// Longer lists are marked songs; a statement with them hardly comes twice.
constexpr std::size_t LongestCachedList = 16;

bool IsTextual(const Expression& expression)
{
    return expression.type == ValueType::Text || expression.type == ValueType::Unknown;
}

/// Texts compare under the collation. Where a number or date takes part, SQLite compares as it is,
/// and may use its indexes.
bool ComparesTexts(const Expression& test)
{
    return IsTextual(test.operands.front()) &&
           std::any_of(test.operands.begin() + 1, test.operands.end(), IsTextual);
}

bool AddsNumbers(const Expression& sum)
{
    return std::all_of(sum.operands.begin(), sum.operands.end(),
                       [](const Expression& operand) { return operand.type == ValueType::Number; });
}

} // namespace

Writer::Level Writer::LevelOf(const Expression& expression)
{
    switch (expression.kind) {
    case Kind::Or:
        return Level::Or;
    case Kind::And:
        return Level::And;
    case Kind::Not:
        return Level::Not;
    case Kind::Like:
        return expression.negated ? Level::Not : Level::Primary;
    case Kind::Comparison:
    case Kind::IsNull:
    case Kind::Between:
    case Kind::InList:
    case Kind::InQuery:
        return Level::Comparison;
    case Kind::Arithmetic:
        if (expression.text == u"+")
            return AddsNumbers(expression) ? Level::Sum : Level::Primary;
        return expression.text == u"-" ? Level::Sum : Level::Product;
    case Kind::Negate:
        return Level::Unary;
    default:
        return Level::Primary;
    }
}

/// @param loosest  what binds more loosely than this gets parentheses
void Writer::Write(const Expression& expression, Level loosest)
{
    const bool parenthesised = LevelOf(expression) < loosest;
    if (parenthesised)
        m_out.sql += '(';
    WriteBare(expression);
    if (parenthesised)
        m_out.sql += ')';
}

void Writer::WriteBare(const Expression& expression)
{
    switch (expression.kind) {
    case Kind::Null:
        m_out.sql += "NULL";
        break;
    case Kind::Number:
        m_out.sql += expression.text.toLatin1();
        break;
    case Kind::Text:
        AddValue(expression.text, expression.place);
        break;
    case Kind::Column:
        m_out.sql += QuotedColumn(*expression.table, *expression.column);
        break;
    case Kind::Call:
        WriteCall(expression);
        break;
    case Kind::Negate:
        m_out.sql += '-';
        Write(expression.operands.front(), Level::Primary);
        break;
    case Kind::Not:
        WriteNot(expression);
        break;
    case Kind::And:
        WriteChain(expression, " AND ", Level::And);
        break;
    case Kind::Or:
        WriteChain(expression, " OR ", Level::Or);
        break;
    case Kind::Concat:
        WriteFunction(Names::Concat, expression.operands);
        break;
    case Kind::Arithmetic:
        WriteArithmetic(expression);
        break;
    case Kind::Comparison:
        WriteComparison(expression);
        break;
    case Kind::Like:
        WriteLike(expression);
        break;
    case Kind::IsNull:
        WriteIsNull(expression);
        break;
    case Kind::Between:
        WriteBetween(expression);
        break;
    case Kind::InList:
        WriteInList(expression);
        break;
    case Kind::InQuery:
        WriteInQuery(expression);
        break;
    }
}

void Writer::WriteCollated(const Expression& expression, bool collated)
{
    Write(expression, collated ? Level::Primary : Level::Or);
    if (collated)
        m_out.sql += QByteArray(" COLLATE ") + Names::Collation;
}

/// The value that a test compares with something, on the left.
void Writer::WriteTested(const Expression& value, bool collated)
{
    if (collated)
        WriteCollated(value, true);
    else
        Write(value, Level::Sum);
}

void Writer::WriteChain(const Expression& expression, const char* word, Level operand)
{
    for (const Expression& part : expression.operands) {
        if (&part != &expression.operands.front())
            m_out.sql += word;
        Write(part, operand);
    }
}

void Writer::WriteFunction(const char* name, const std::vector<Expression>& arguments)
{
    m_out.sql += QByteArray(name) + '(';
    for (const Expression& argument : arguments) {
        if (&argument != &arguments.front())
            m_out.sql += ", ";
        Write(argument);
    }
    m_out.sql += ')';
}

void Writer::WriteCall(const Expression& expression)
{
    m_out.sql += QByteArray(expression.function->sqlName) + '(';
    if (expression.operands.empty())
        m_out.sql += '*';
    else
        WriteCollated(expression.operands.front(),
                      expression.function->aggregate && IsTextual(expression.operands.front()));
    m_out.sql += ')';
}

void Writer::WriteNot(const Expression& expression)
{
    m_out.sql += "NOT ";
    Write(expression.operands.front(), Level::Not);
}

void Writer::WriteArithmetic(const Expression& expression)
{
    const Level level = LevelOf(expression);
    if (level == Level::Primary) {
        WriteFunction(Names::Add, expression.operands);
        return;
    }
    Write(expression.operands.front(), level);
    // Whole numbers divide into a fraction; SQLite alone would cut it off.
    m_out.sql +=
        expression.text == u"/" ? QByteArray(" * 1.0 / ") : ' ' + expression.text.toLatin1() + ' ';
    Write(expression.operands.back(), level == Level::Sum ? Level::Product : Level::Unary);
}

void Writer::WriteComparison(const Expression& expression)
{
    WriteTested(expression.operands.front(), ComparesTexts(expression));
    m_out.sql += ' ' + expression.text.toLatin1() + ' ';
    if (expression.operands.front().kind != Kind::Column || !Bind(expression.operands.back()))
        Write(expression.operands.back(), Level::Sum);
}

/// @return false for what is no whole number, or is to be written as it stands
bool Writer::Bind(const Expression& number)
{
    bool isWhole = false;
    const qint64 value = number.text.toLongLong(&isWhole);
    if (m_numbers != Compared::Bound || number.kind != Kind::Number || !isWhole)
        return false;
    AddValue(value, number.place);
    return true;
}

void Writer::AddValue(Value value, qsizetype place)
{
    m_out.sql += '?';
    m_out.values.push_back(std::move(value));
    m_out.places.push_back(place);
}

void Writer::WriteLike(const Expression& expression)
{
    if (expression.negated)
        m_out.sql += "NOT ";
    WriteFunction(Names::Like, expression.operands);
}

void Writer::WriteIsNull(const Expression& expression)
{
    WriteTested(expression.operands.front(), false);
    m_out.sql += expression.negated ? " IS NOT NULL" : " IS NULL";
}

void Writer::WriteBetween(const Expression& expression)
{
    WriteTested(expression.operands[0], ComparesTexts(expression));
    m_out.sql += expression.negated ? " NOT BETWEEN " : " BETWEEN ";
    Write(expression.operands[1], Level::Sum);
    m_out.sql += " AND ";
    Write(expression.operands[2], Level::Sum);
}

void Writer::WriteInList(const Expression& expression)
{
    WriteTested(expression.operands.front(), ComparesTexts(expression));
    m_out.sql += expression.negated ? " NOT IN (" : " IN (";
    const bool isShort = expression.operands.size() - 1 <= LongestCachedList;
    const bool binds = isShort && expression.operands.front().kind == Kind::Column;
    for (std::size_t i = 1; i < expression.operands.size(); ++i) {
        if (i > 1)
            m_out.sql += ", ";
        if (!binds || !Bind(expression.operands[i]))
            Write(expression.operands[i]);
    }
    m_out.sql += ')';
    if (!isShort)
        m_out.cacheable = false;
}

void Writer::WriteInQuery(const Expression& expression)
{
    const Expression& value = expression.operands.front();
    WriteTested(value, IsTextual(value) && IsTextual(expression.query->columns.front().value));
    m_out.sql += expression.negated ? " NOT IN (" : " IN (";
    WriteBody(*expression.query, nullptr);
    m_out.sql += ')';
}
