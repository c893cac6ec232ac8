#include "store/dialect/Dialect.h"

#include "store/dialect/Parser.h"
#include "store/dialect/Resolver.h"
#include "store/dialect/Writer.h"

Translation Translate(QStringView sql, const Schema& schema)
{
    const Complaint complaint(sql);
    Syntax::Statement statement = Parser(sql, complaint).ParseStatement();
    Resolver(schema, complaint).Resolve(statement);
    return Writer::Write(statement);
}
