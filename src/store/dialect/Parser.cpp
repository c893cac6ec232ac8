#include "store/dialect/Parser.h"

#include <utility>

using namespace Syntax;

Parser::Parser(QStringView sql, const Complaint& complaint)
    : m_complaint(complaint)
    , m_lexer(sql, complaint)
    , m_token(m_lexer.Next())
{
}

Statement Parser::ParseStatement()
{
    const auto parse = [this]() -> Statement {
        if (m_token.Is(u"SELECT"))
            return ParseSelect();
        if (m_token.Is(u"INSERT"))
            return ParseInsert();
        if (m_token.Is(u"UPDATE"))
            return ParseUpdate();
        if (m_token.Is(u"DELETE"))
            return ParseDelete();
        Fail(QStringLiteral("SELECT, INSERT, UPDATE or DELETE"));
    };
    Statement statement = parse();
    const bool closed = Accept(u";");
    if (m_token.kind != Token::Kind::End)
        Fail(closed ? QStringLiteral("nothing behind the ;")
                    : QStringLiteral("an operator, a clause or the end of the statement"));
    return statement;
}

Select Parser::ParseSelect()
{
    Select select;
    Expect(u"SELECT");
    select.distinct = Accept(u"DISTINCT");
    select.allColumns = Accept(u"*");
    if (!select.allColumns)
        select.columns = ParseResultColumns();
    Expect(u"FROM");
    select.from = ParseSource();
    select.joins = ParseJoins();
    select.where = ParseWhere();
    if (Accept(u"GROUP")) {
        Expect(u"BY");
        do
            select.groupBy.push_back(ParseExpression());
        while (Accept(u","));
    }
    if (Accept(u"ORDER")) {
        Expect(u"BY");
        select.orderBy = ParseOrderTerms();
    }
    return select;
}

std::vector<ResultColumn> Parser::ParseResultColumns()
{
    std::vector<ResultColumn> columns;
    do {
        ResultColumn column{ParseExpression(), {}};
        if (Accept(u"AS"))
            column.name = ParseName(QStringLiteral("a name for the column")).text;
        columns.push_back(std::move(column));
    } while (Accept(u","));
    return columns;
}

std::vector<Join> Parser::ParseJoins()
{
    std::vector<Join> joins;
    while (Accept(u"INNER")) {
        Expect(u"JOIN");
        Source source = ParseSource();
        Expect(u"ON");
        joins.push_back({std::move(source), ParseExpression()});
    }
    return joins;
}

std::vector<OrderTerm> Parser::ParseOrderTerms()
{
    std::vector<OrderTerm> terms;
    do {
        OrderTerm term{ParseExpression()};
        term.descending = Accept(u"DESC");
        if (!term.descending)
            Accept(u"ASC");
        terms.push_back(std::move(term));
    } while (Accept(u","));
    return terms;
}

Insert Parser::ParseInsert()
{
    Insert insert;
    Expect(u"INSERT");
    Expect(u"INTO");
    insert.into = ParseSource();
    Expect(u"(");
    do
        insert.targets.push_back(ParseTarget());
    while (Accept(u","));
    Expect(u")");
    insert.valuesPlace = m_token.place;
    if (m_token.Is(u"SELECT")) {
        insert.query = ParseSelect();
        return insert;
    }
    if (!Accept(u"VALUES"))
        Fail(QStringLiteral("VALUES or SELECT"));
    Expect(u"(");
    do
        insert.values.push_back(ParseExpression());
    while (Accept(u","));
    Expect(u")");
    return insert;
}

Update Parser::ParseUpdate()
{
    Update update;
    Expect(u"UPDATE");
    update.table = ParseSource();
    Expect(u"SET");
    do {
        Target target = ParseTarget();
        Expect(u"=");
        update.assignments.push_back({std::move(target), ParseExpression()});
    } while (Accept(u","));
    update.where = ParseWhere();
    return update;
}

Delete Parser::ParseDelete()
{
    Delete deletion;
    Expect(u"DELETE");
    Expect(u"FROM");
    deletion.from = ParseSource();
    deletion.where = ParseWhere();
    return deletion;
}

std::optional<Expression> Parser::ParseWhere()
{
    if (!Accept(u"WHERE"))
        return std::nullopt;
    return ParseExpression();
}

Source Parser::ParseSource()
{
    return {ParseName(QStringLiteral("the name of a table"))};
}

Target Parser::ParseTarget()
{
    return {ParseName(QStringLiteral("the name of a column"))};
}

Name Parser::ParseName(const QString& expected)
{
    if (m_token.kind != Token::Kind::Name)
        Fail(expected);
    Name name{m_token.Value(), m_token.place};
    Advance();
    return name;
}

bool Parser::Accept(QStringView word)
{
    if (!m_token.Is(word))
        return false;
    Advance();
    return true;
}

void Parser::Expect(QStringView word)
{
    if (!Accept(word))
        Fail(word.toString());
}

void Parser::Fail(const QString& expected) const
{
    m_complaint.Expected(expected, m_token.place, m_token.Describe());
}
