#include "tools/ExcerptFunction.h"

#include "songbook/Reading.h"
#include "store/sqlite/SqlFunctionHelp.h"

namespace {

void Excerpt(sqlite3_context* context, sqlite3_value** arguments)
{
    const std::string_view utf8 = SqlFunctionHelp::Utf8(arguments[0]);
    const QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    SqlFunctionHelp::ResultText(context, Songbook::Excerpt(text).toStdString());
}

} // namespace

void ExcerptFunction::AddTo(sqlite3* database)
{
    SqlFunctionHelp::Add(database, "TRECHO", 1, SqlFunctionHelp::Guarded<Excerpt>);
}
