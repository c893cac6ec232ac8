#include "store/dialect/Names.h"
#include "store/sqlite/Failure.h"
#include "store/sqlite/SqlFunctions.h"
#include "store/text/Collation.h"

#include <sqlite3.h>

namespace {

std::string_view View(int length, const void* text)
{
    return {static_cast<const char*>(text), static_cast<std::size_t>(length)};
}

int Compare(void*, int lengthA, const void* a, int lengthB, const void* b)
{
    return Collation::Shared().Compare(View(lengthA, a), View(lengthB, b));
}

} // namespace

void SqlFunctions::AddCollation(sqlite3* database)
{
    Collation::Shared(); // made here, where a failure may be thrown
    if (sqlite3_create_collation_v2(database, Names::Collation, SQLITE_UTF8, nullptr, Compare,
                                    nullptr) != SQLITE_OK)
        Failure::ThrowLast(database);
}
