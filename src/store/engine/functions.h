// Registers the collation and the functions of translated statements with SQLite. No exception passes through
// SQLite: it becomes an error of the statement.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

struct sqlite3;

namespace quillon::store {

class AutoNumbers;

void RegisterFunctions(sqlite3* db, AutoNumbers& autoNumbers);

// A function of one whole number. Null maps to Null without a call, and so does an empty result.
using MapFunction = std::function<std::optional<std::int64_t>(std::int64_t)>;
void RegisterMap(sqlite3* db, const std::string& name, MapFunction function);

}  // namespace quillon::store
