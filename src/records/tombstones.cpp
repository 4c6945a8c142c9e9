#include "records/tombstones.h"

#include <string>

#include "core/text.h"
#include "store/unit.h"

namespace quillon::records {

namespace {

// The condition on one key column of a tombstone.
std::string KeyCondition(std::string_view column, const Value& key) {
    const std::string text = ReplaceText(Trim(key.AsText()), "'", "''");
    return " AND strcomp( " + std::string(column) + ", '" + text + "', 0) = 0";
}

}  // namespace

bool WriteTombstone(const RecordStore& records, std::string_view table_name, const Value& pk1,
                    const std::optional<Value>& pk2, const std::optional<Value>& pk3,
                    const std::optional<Value>& pk4) {
    try {
        store::Unit unit(records.engine);
        const auto tombstones = records.database.OpenTable("db_tombstone");
        tombstones->AddNew();
        tombstones->Set("table_name", table_name);
        tombstones->Set("pk1", Value::TextOrNull(pk1.AsText()));
        if (pk2) tombstones->Set("pk2", Value::TextOrNull(pk2->AsText()));
        if (pk2 && pk3) tombstones->Set("pk3", Value::TextOrNull(pk3->AsText()));
        if (pk2 && pk3 && pk4) tombstones->Set("pk4", Value::TextOrNull(pk4->AsText()));
        tombstones->Update();
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
    std::string sql = "DELETE FROM db_tombstone WHERE table_name = '" + std::string(table_name) + "'  " +
                      KeyCondition("pk1", pk1);
    if (pk2) sql += KeyCondition("pk2", *pk2);
    if (pk3) sql += KeyCondition("pk3", *pk3);
    if (pk4) sql += KeyCondition("pk4", *pk4);
    records.Reporting([&] { records.database.Execute(sql); });
}

}  // namespace quillon::records
