#include "store/dialect/Names.h"
#include "store/sqlite/SqlFunctionHelp.h"
#include "store/sqlite/SqlFunctions.h"
#include "store/text/Like.h"

#include <memory>
#include <optional>

namespace {

namespace Help = SqlFunctionHelp;

constexpr int Pattern = 1;

/// @return the compiled pattern; SQLite keeps it for the rows to come while the argument is the
/// same bound text.
const Like* Compiled(sqlite3_context* context, sqlite3_value* pattern, std::optional<Like>& own)
{
    if (const void* kept = sqlite3_get_auxdata(context, Pattern))
        return static_cast<const Like*>(kept);
    auto fresh = std::make_unique<Like>(Help::Utf8(pattern));
    sqlite3_set_auxdata(context, Pattern, fresh.release(),
                        [](void* like) { delete static_cast<Like*>(like); });
    if (const void* kept = sqlite3_get_auxdata(context, Pattern))
        return static_cast<const Like*>(kept);
    // It may have dropped it at once.
    return &own.emplace(Help::Utf8(pattern));
}

void LikeBody(sqlite3_context* context, sqlite3_value** arguments)
{
    if (Help::IsNull(arguments[0]) || Help::IsNull(arguments[Pattern]))
        return;
    std::optional<Like> own;
    const Like* like = Compiled(context, arguments[Pattern], own);
    sqlite3_result_int(context, like->Matches(Help::Utf8(arguments[0])) ? 1 : 0);
}

} // namespace

void SqlFunctions::AddLike(sqlite3* database)
{
    Help::Add(database, Names::Like, 2, Help::Guarded<LikeBody>);
}
