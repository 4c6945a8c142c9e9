#include "store/map_function.h"

#include <string>
#include <utility>

#include "store/engine/connection.h"
#include "store/engine/functions.h"

namespace quillon::store {

void RegisterMapFunction(Database& database, std::string_view name,
                         std::function<std::optional<std::int64_t>(std::int64_t)> function) {
    RegisterMap(database.Shared()->Native(), std::string(name), std::move(function));
}

int ExecuteNative(Database& database, std::string_view sqliteSql) {
    return database.Shared()->ExecuteNative(sqliteSql);
}

}  // namespace quillon::store
