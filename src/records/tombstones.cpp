#include "records/tombstones.h"

#include <fmt/format.h>

#include <string>
#include <vector>

#include "core/text.h"
#include "store/unit.h"

namespace quillon::records {

namespace {

constexpr std::string_view kInsert =
    "PARAMETERS tablename Text, key1 Text, key2 Text, key3 Text, key4 Text; "
    "INSERT INTO db_tombstone ( table_name, pk1, pk2, pk3, pk4 ) SELECT tablename, key1, key2, key3, key4;";

// The condition on one key column of a tombstone. The index answers the equality, which ignores case; the
// comparison after it does not.
std::string KeyCondition(std::size_t column) {
    return fmt::format(" AND pk{0} = key{0} AND StrComp(pk{0}, key{0}, 0) = 0", column);
}

store::QueryDef DeletionOf(store::Database& database, std::string_view table_name,
                           const std::vector<Value>& keys) {
    std::string parameters = "PARAMETERS tablename Text", conditions;
    for (std::size_t column = 1; column <= keys.size(); ++column) {
        parameters += fmt::format(", key{} Text", column);
        conditions += KeyCondition(column);
    }
    store::QueryDef query = database.CreateQueryDef(
        "",
        fmt::format("{}; DELETE FROM db_tombstone WHERE table_name = tablename{}", parameters, conditions));
    query.Set("tablename", table_name);
    for (std::size_t column = 1; column <= keys.size(); ++column)
        query.Set(fmt::format("key{}", column), Trim(keys[column - 1].AsText()));
    return query;
}

}  // namespace

bool WriteTombstone(const RecordStore& records, std::string_view table_name, const Value& pk1,
                    const std::optional<Value>& pk2, const std::optional<Value>& pk3,
                    const std::optional<Value>& pk4) {
    try {
        store::QueryDef query = records.database.CreateQueryDef("", kInsert);
        query.Set("tablename", table_name).Set("key1", Value::TextOrNull(pk1.AsText()));
        const auto key = [](const std::optional<Value>& given) {
            return given ? Value::TextOrNull(given->AsText()) : Value();
        };
        if (pk2) query.Set("key2", key(pk2));
        if (pk2 && pk3) query.Set("key3", key(pk3)).Set("key4", key(pk4));
        store::Unit unit(records.engine);
        query.Execute();
        unit.Commit();
        return true;
    } catch (const store::StoreError& failure) {
        if (failure.EndsJob() && records.engine.IsCommandRunning()) throw;
        return false;
    }
}

void RemoveTombstone(const RecordStore& records, std::string_view table_name, const Value& pk1,
                     const std::optional<Value>& pk2, const std::optional<Value>& pk3,
                     const std::optional<Value>& pk4) {
    std::vector<Value> keys = {pk1};
    for (const auto* key : {&pk2, &pk3, &pk4})
        if (*key) keys.push_back(**key);
    records.Reporting([&] { DeletionOf(records.database, table_name, keys).Execute(); });
}

}  // namespace quillon::records
