// Runs a statement of SQLite's own SQL over a whole table, with values from the program's memory. Only for
// the closing pass of the import; everything else uses the dialect.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "store/engine.h"

namespace quillon::store {

// A function of one whole number for statements run by ExecuteNative. Null maps to Null without a call, and
// so does an empty result. The function exists until it is registered again or the file is closed.
void RegisterMapFunction(Database& database, std::string_view name,
                         std::function<std::optional<std::int64_t>(std::int64_t)> function);

// Runs one statement in its own unit and returns the number of rows changed. Open results keep their rows.
int ExecuteNative(Database& database, std::string_view sqliteSql);

}  // namespace quillon::store
