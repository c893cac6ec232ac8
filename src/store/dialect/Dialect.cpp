#include "store/dialect/Dialect.h"

#include "store/dialect/LinkJoin.h"
#include "store/dialect/Parser.h"
#include "store/dialect/Resolver.h"
#include "store/dialect/Writer.h"

Syntax::Statement ReadStatement(QStringView sql, const Schema& schema)
{
    const Complaint complaint(sql);
    Syntax::Statement statement = Parser(sql, complaint).ParseStatement();
    Resolver(schema, complaint).Resolve(statement);
    if (auto* query = std::get_if<Syntax::Select>(&statement))
        FoldLinkJoin(*query);
    return statement;
}

Translation Translate(QStringView sql, const Schema& schema)
{
    return Writer::Write(ReadStatement(sql, schema));
}
