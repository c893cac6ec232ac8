#include "store/sqlite/SqlFunctionHelp.h"

#include "runtime/Number.h"
#include "runtime/RuntimeError.h"
#include "store/sqlite/Failure.h"
#include "store/text/Utf8.h"

#include <new>

void SqlFunctionHelp::Add(sqlite3* database, const char* name, int arity, Function function)
{
    const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY;
    if (sqlite3_create_function_v2(database, name, arity, flags, nullptr, function, nullptr,
                                   nullptr, nullptr) != SQLITE_OK)
        Failure::ThrowLast(database);
}

std::string_view SqlFunctionHelp::Utf8(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    if (!text)
        return {};
    return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

bool SqlFunctionHelp::IsNull(sqlite3_value* value)
{
    return sqlite3_value_type(value) == SQLITE_NULL;
}

bool SqlFunctionHelp::IsText(sqlite3_value* value)
{
    const int type = sqlite3_value_type(value);
    return type == SQLITE_TEXT || type == SQLITE_BLOB;
}

double SqlFunctionHelp::Number(sqlite3_value* value)
{
    if (IsText(value))
        return Number::ToDouble(Text(value));
    return sqlite3_value_double(value);
}

QString SqlFunctionHelp::Text(sqlite3_value* value)
{
    if (sqlite3_value_type(value) == SQLITE_FLOAT)
        return Number::ToText(sqlite3_value_double(value));
    return ::Utf8::ToText(Utf8(value));
}

void SqlFunctionHelp::ResultText(sqlite3_context* context, std::string_view utf8)
{
    sqlite3_result_text64(context, utf8.data(), utf8.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void SqlFunctionHelp::Guard(sqlite3_context* context,
                            void (*body)(sqlite3_context*, sqlite3_value**),
                            sqlite3_value** arguments)
{
    try {
        body(context, arguments);
    } catch (const RuntimeError& error) {
        sqlite3_result_error(context, error.Description().toUtf8().constData(), -1);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    } catch (const std::exception& error) {
        sqlite3_result_error(context, error.what(), -1);
    }
}
