#include "runtime/Number.h"

#include "store/dialect/Names.h"
#include "store/sqlite/SqlFunctionHelp.h"
#include "store/sqlite/SqlFunctions.h"

namespace {

namespace Help = SqlFunctionHelp;

/// Gives the value as a column of that size holds it; NULL stays NULL.
template <auto Round>
void SizeBody(sqlite3_context* context, sqlite3_value** arguments)
{
    if (!Help::IsNull(arguments[0]))
        sqlite3_result_int(context, Round(Help::Number(arguments[0])));
}

} // namespace

void SqlFunctions::AddNumbers(sqlite3* database)
{
    Help::Add(database, Names::Integer, 1, Help::Guarded<SizeBody<&Number::ToInteger>>);
    Help::Add(database, Names::Long, 1, Help::Guarded<SizeBody<&Number::ToLong>>);
}

void SqlFunctions::AddAll(sqlite3* database)
{
    AddLike(database);
    AddText(database);
    AddDates(database);
    AddNumbers(database);
    AddCollation(database);
}
