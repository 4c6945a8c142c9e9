// Work on a whole table in one statement of SQLite's own SQL, with values that are only in the program's
// memory. For the closing pass of the import; everything else is written in the dialect.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "store/engine.h"

namespace quillon::store {

// A function of one whole number for statements run by ExecuteNative. Null maps to Null without a call, and
// so does an empty result. It stays until it is registered again or the file is closed.
void RegisterMapFunction(Database& database, std::string_view name,
                         std::function<std::optional<std::int64_t>(std::int64_t)> function);

// Runs one statement as a unit of its own and returns the number of rows changed. Open results keep the rows
// that they had.
int ExecuteNative(Database& database, std::string_view sqliteSql);

}  // namespace quillon::store
