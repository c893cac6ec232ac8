#include "store/dialect/Names.h"
#include "store/sqlite/SqlFunctionHelp.h"
#include "store/sqlite/SqlFunctions.h"

#include <limits>
#include <string>

namespace {

namespace Help = SqlFunctionHelp;

void AppendText(std::string& joined, sqlite3_value* value)
{
    // SQLite would write a fraction with a point.
    if (sqlite3_value_type(value) == SQLITE_FLOAT)
        joined += Help::Text(value).toStdString();
    else
        joined += Help::Utf8(value);
}

void Concat(sqlite3_context* context, int count, sqlite3_value** arguments)
{
    try {
        std::string joined;
        for (int i = 0; i < count; ++i)
            AppendText(joined, arguments[i]);
        Help::ResultText(context, joined);
    } catch (const std::exception&) {
        sqlite3_result_error_nomem(context);
    }
}

void AddWhole(sqlite3_context* context, qint64 a, qint64 b)
{
    // Columns hold at most 32 bits; whatever leaves 64 is refused there as well, being a fraction.
    using Limits = std::numeric_limits<qint64>;
    if ((b > 0 && a > Limits::max() - b) || (b < 0 && a < Limits::min() - b))
        sqlite3_result_double(context, static_cast<double>(a) + static_cast<double>(b));
    else
        sqlite3_result_int64(context, a + b);
}

void AddBody(sqlite3_context* context, sqlite3_value** arguments)
{
    sqlite3_value* const a = arguments[0];
    sqlite3_value* const b = arguments[1];
    if (Help::IsNull(a) || Help::IsNull(b))
        return;
    if (Help::IsText(a) && Help::IsText(b)) {
        std::string joined(Help::Utf8(a));
        joined += Help::Utf8(b);
        Help::ResultText(context, joined);
    } else if (sqlite3_value_type(a) == SQLITE_INTEGER && sqlite3_value_type(b) == SQLITE_INTEGER) {
        AddWhole(context, sqlite3_value_int64(a), sqlite3_value_int64(b));
    } else {
        sqlite3_result_double(context, Help::Number(a) + Help::Number(b));
    }
}

} // namespace

void SqlFunctions::AddText(sqlite3* database)
{
    Help::Add(database, Names::Concat, -1, Concat);
    Help::Add(database, Names::Add, 2, Help::Guarded<AddBody>);
}
