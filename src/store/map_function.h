// Work on a whole table in one statement of SQLite's own SQL, with values that only the program's memory
// knows. For the closing pass of the import; everything else speaks the dialect.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "store/engine.h"

namespace quillon::store {

// A function of one whole number for statements run by ExecuteNative. Null gives Null without a call; nothing
// gives Null. It stays until it is registered again or the file is closed.
void RegisterMapFunction(Database& database, std::string_view name,
                         std::function<std::optional<std::int64_t>(std::int64_t)> function);

// One statement as a unit of its own; returns the rows changed. Open results keep the rows that they had.
int ExecuteNative(Database& database, std::string_view sqliteSql);

}  // namespace quillon::store
