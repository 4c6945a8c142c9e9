#include "store/map_function.h"

#include <sqlite3.h>

#include <memory>
#include <string>

#include "store/engine/connection.h"

namespace quillon::store {

namespace {

using MapFunction = std::function<std::optional<std::int64_t>(std::int64_t)>;

void Call(sqlite3_context* context, int, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
    const auto& function = *static_cast<MapFunction*>(sqlite3_user_data(context));
    if (const auto result = function(sqlite3_value_int64(values[0]))) sqlite3_result_int64(context, *result);
}

void Destroy(void* function) {
    std::unique_ptr<MapFunction>(static_cast<MapFunction*>(function));
}

}  // namespace

void RegisterMapFunction(Database& database, std::string_view name, MapFunction function) {
    const std::shared_ptr<Connection> connection = database.Shared();
    auto owned = std::make_unique<MapFunction>(std::move(function));
    const int code = sqlite3_create_function_v2(connection->Native(), std::string(name).c_str(), 1,
                                                SQLITE_UTF8 | SQLITE_DIRECTONLY, owned.release(), Call,
                                                nullptr, nullptr, Destroy);
    if (code != SQLITE_OK) ThrowNative(connection->Native(), code);
}

int ExecuteNative(Database& database, std::string_view sqliteSql) {
    const std::shared_ptr<Connection> connection = database.Shared();
    connection->BeforeWrite();
    NativeStatement statement(connection->Native(), sqliteSql);
    statement.Step();
    const int changes = sqlite3_changes(connection->Native());
    connection->AfterWrite();
    return changes;
}

}  // namespace quillon::store
