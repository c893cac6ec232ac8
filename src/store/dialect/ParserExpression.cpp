// The half of the parser that reads expressions, by precedence climbing: one loop over the
// operators instead of a function for each of their eight levels.

#include "store/dialect/Parser.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Syntax;
using Kind = Expression::Kind;

/// Counts how deep the parser is inside the statement while it lives.
class Parser::Nesting
{
public:
    explicit Nesting(Parser& parser, int levels = 1)
        : m_parser(parser)
        , m_levels(levels)
    {
        if (m_parser.m_nesting + m_levels > DeepestNesting)
            m_parser.Fail(u"at most " + QString::number(DeepestNesting) +
                          u" parentheses and operators inside one another");
        m_parser.m_nesting += m_levels;
    }
    ~Nesting() { m_parser.m_nesting -= m_levels; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

private:
    Parser& m_parser;
    int m_levels;
};

Expression Parser::ParseExpression(Precedence loosest)
{
    Expression left = ParseOperand();
    for (auto found = InfixPrecedence(); found && *found >= loosest; found = InfixPrecedence())
        left = ParseInfix(std::move(left), *found);
    return left;
}

Expression Parser::ParseOperand()
{
    if (m_token.Is(u"NOT"))
        return ParsePrefixed(Kind::Not, Precedence::Not);
    if (m_token.Is(u"-"))
        return ParsePrefixed(Kind::Negate, Precedence::Minus);
    if (m_token.Is(u"("))
        return ParseParenthesis();
    if (m_token.kind == Token::Kind::Name)
        return ParseColumnOrCall();

    Expression literal;
    if (m_token.kind == Token::Kind::Number)
        literal = Begin(Kind::Number);
    else if (m_token.kind == Token::Kind::Text)
        literal = Begin(Kind::Text);
    else if (m_token.Is(u"NULL"))
        literal = Begin(Kind::Null);
    else
        Fail(QStringLiteral("a value"));
    literal.text = m_token.Value();
    Advance();
    return literal;
}

Expression Parser::ParsePrefixed(Kind kind, Precedence loosest)
{
    const Nesting nesting(*this);
    Expression expression = Begin(kind);
    Advance();
    Adopt(expression, ParseExpression(loosest));
    return expression;
}

Expression Parser::ParseParenthesis()
{
    const Nesting nesting(*this);
    Expect(u"(");
    Expression inner = ParseExpression();
    Expect(u")");
    return inner;
}

Expression Parser::ParseColumnOrCall()
{
    Expression column = Begin(Kind::Column);
    Name name = ParseName({});
    if (m_token.Is(u"("))
        return ParseCall(name);
    if (Accept(u".")) {
        column.qualifier = std::move(name.text);
        name = ParseName(QStringLiteral("the name of a column"));
    }
    column.text = std::move(name.text);
    return column;
}

Expression Parser::ParseCall(const Name& name)
{
    const Function* function = FindFunction(name.text);
    if (!function)
        m_complaint.Expected(QStringLiteral("Day, Month, Year, CDATE, MAX, MIN or COUNT"),
                             name.place, name.text);
    const Nesting nesting(*this);
    Expression call = Begin(Kind::Call);
    call.place = name.place;
    call.function = function;
    Expect(u"(");
    if (!function->acceptsStar || !Accept(u"*"))
        Adopt(call, ParseExpression());
    Expect(u")");
    return call;
}

std::optional<Parser::Precedence> Parser::InfixPrecedence() const
{
    struct Infix
    {
        QStringView word;
        Precedence precedence;
    };
    static constexpr std::array<Infix, 18> Infixes{{
        {u"OR", Precedence::Or},
        {u"AND", Precedence::And},
        {u"=", Precedence::Comparison},
        {u"<>", Precedence::Comparison},
        {u"<", Precedence::Comparison},
        {u">", Precedence::Comparison},
        {u"<=", Precedence::Comparison},
        {u">=", Precedence::Comparison},
        {u"IS", Precedence::Comparison},
        {u"NOT", Precedence::Comparison},
        {u"IN", Precedence::Comparison},
        {u"LIKE", Precedence::Comparison},
        {u"BETWEEN", Precedence::Comparison},
        {u"&", Precedence::Concat},
        {u"+", Precedence::Sum},
        {u"-", Precedence::Sum},
        {u"*", Precedence::Product},
        {u"/", Precedence::Product},
    }};
    const auto* const found = std::find_if(Infixes.begin(), Infixes.end(),
                                           [this](const Infix& i) { return m_token.Is(i.word); });
    if (found == Infixes.end())
        return std::nullopt;
    return found->precedence;
}

/// All operators bind to the left: the right operand takes only what binds tighter.
Expression Parser::ParseInfix(Expression left, Precedence precedence)
{
    Expression expression;
    switch (precedence) {
    case Precedence::Or:
        expression = Begin(Kind::Or);
        break;
    case Precedence::And:
        expression = Begin(Kind::And);
        break;
    case Precedence::Concat:
        expression = Begin(Kind::Concat);
        break;
    case Precedence::Comparison:
        return ParseTest(std::move(left));
    default:
        expression = Begin(Kind::Arithmetic);
    }
    const bool gathers = expression.kind != Kind::Arithmetic;
    expression.text = m_token.Value();
    Advance();
    if (gathers && left.kind == expression.kind)
        expression = std::move(left);
    else
        Adopt(expression, std::move(left));
    Adopt(expression, ParseExpression(static_cast<Precedence>(static_cast<int>(precedence) + 1)));
    return expression;
}

Expression Parser::ParseTest(Expression value)
{
    if (m_token.Is(u"IS"))
        return ParseIsNull(std::move(value));
    if (m_token.kind == Token::Kind::Symbol) {
        Expression comparison = Begin(Kind::Comparison);
        comparison.text = m_token.Value();
        Advance();
        Adopt(comparison, std::move(value));
        Adopt(comparison, ParseExpression(Precedence::Concat));
        return comparison;
    }

    const bool negated = Accept(u"NOT");
    Expression test;
    if (m_token.Is(u"IN")) {
        test = ParseIn(std::move(value));
    } else if (m_token.Is(u"BETWEEN")) {
        test = ParseBetween(std::move(value));
    } else if (m_token.Is(u"LIKE")) {
        test = Begin(Kind::Like);
        Advance();
        Adopt(test, std::move(value));
        Adopt(test, ParseExpression(Precedence::Concat));
    } else {
        Fail(QStringLiteral("IN, LIKE or BETWEEN behind NOT"));
    }
    test.negated = negated;
    return test;
}

Expression Parser::ParseBetween(Expression value)
{
    Expression between = Begin(Kind::Between);
    Expect(u"BETWEEN");
    Adopt(between, std::move(value));
    Adopt(between, ParseExpression(Precedence::Concat));
    Expect(u"AND");
    Adopt(between, ParseExpression(Precedence::Concat));
    return between;
}

Expression Parser::ParseIn(Expression value)
{
    const Nesting nesting(*this);
    Expression in = Begin(Kind::InList);
    Expect(u"IN");
    Adopt(in, std::move(value));
    Expect(u"(");
    if (m_token.Is(u"SELECT")) {
        const Nesting queryNesting(*this, SubQueryNesting - 1);
        in.kind = Kind::InQuery;
        in.query = std::make_unique<Select>(ParseSelect());
        Expect(u")");
    } else {
        do
            Adopt(in, ParseExpression());
        while (Accept(u",") && !m_token.Is(u")")); // lists that are built item by item end with one
        Expect(u")");
    }
    return in;
}

Expression Parser::ParseIsNull(Expression value)
{
    Expression test = Begin(Kind::IsNull);
    Expect(u"IS");
    test.negated = Accept(u"NOT");
    Expect(u"NULL");
    Adopt(test, std::move(value));
    return test;
}

Expression Parser::Begin(Kind kind) const
{
    Expression expression;
    expression.kind = kind;
    expression.place = m_token.place;
    return expression;
}

void Parser::Adopt(Expression& parent, Expression child) const
{
    parent.depth = std::max(parent.depth, child.depth + 1);
    if (parent.depth > LongestChain)
        Fail(u"at most " + QString::number(LongestChain) + u" operators in a row");
    parent.operands.push_back(std::move(child));
}
