#include "store/dialect/Names.h"
#include "store/sqlite/Failure.h"
#include "store/sqlite/SqlFunctions.h"
#include "store/text/Collation.h"

#include <sqlite3.h>

#include <memory>

namespace {

std::string_view View(int length, const void* text)
{
    return {static_cast<const char*>(text), static_cast<std::size_t>(length)};
}

int Compare(void* collation, int lengthA, const void* a, int lengthB, const void* b)
{
    return static_cast<const Collation*>(collation)->Compare(View(lengthA, a), View(lengthB, b));
}

} // namespace

void SqlFunctions::AddCollation(sqlite3* database)
{
    auto collation = std::make_unique<Collation>();
    const auto destroy = [](void* owned) { delete static_cast<Collation*>(owned); };
    // SQLite destroys it only when it has taken it.
    if (sqlite3_create_collation_v2(database, Names::Collation, SQLITE_UTF8, collation.get(),
                                    Compare, destroy) != SQLITE_OK)
        Failure::ThrowLast(database);
    static_cast<void>(collation.release());
}
