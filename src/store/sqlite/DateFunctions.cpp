#include "runtime/Date.h"
#include "store/StoredDate.h"
#include "store/dialect/Names.h"
#include "store/sqlite/Failure.h"
#include "store/sqlite/SqlFunctionHelp.h"
#include "store/sqlite/SqlFunctions.h"

namespace {

namespace Help = SqlFunctionHelp;

/// @return the date that a column holds or a text denotes.
std::optional<QDate> ReadDate(sqlite3_value* value)
{
    if (const auto stored = StoredDate::FromText(Help::Utf8(value)))
        return stored;
    return Date::FromText(Help::Text(value));
}

void CdateBody(sqlite3_context* context, sqlite3_value** arguments)
{
    if (const auto date = Date::FromText(Help::Text(arguments[0])))
        Help::ResultText(context, Date::ToStored(*date).toStdString());
    else
        sqlite3_result_error(context, Failure::DateMismatch, -1);
}

/// A date that cannot be read gives NULL as a missing one does: one such row, which another tool
/// may have left, must not keep a list of all the others from filling.
template <int (QDate::*Part)() const>
void PartBody(sqlite3_context* context, sqlite3_value** arguments)
{
    if (Help::IsNull(arguments[0]))
        return;
    if (const auto date = ReadDate(arguments[0]))
        sqlite3_result_int(context, ((*date).*Part)());
}

} // namespace

void SqlFunctions::AddDates(sqlite3* database)
{
    Help::Add(database, Names::Cdate, 1, Help::Guarded<CdateBody>);
    Help::Add(database, Names::Day, 1, Help::Guarded<PartBody<&QDate::day>>);
    Help::Add(database, Names::Month, 1, Help::Guarded<PartBody<&QDate::month>>);
    Help::Add(database, Names::Year, 1, Help::Guarded<PartBody<&QDate::year>>);
}
