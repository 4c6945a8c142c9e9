#include "store/engine/id_ranges.h"

#include <fmt/format.h>

#include <cstdint>
#include <limits>

#include "store/engine/native.h"

namespace quillon::store {

namespace {

// A text or blob, which no range includes, is after all numbers in the index.
bool IsInRange(const Value& value) {
    if (value.IsNull()) return true;
    if (!value.IsInteger() && !value.IsReal()) return false;
    const std::int64_t number = value.AsLong();
    return number >= std::numeric_limits<std::int32_t>::min() &&
           number <= std::numeric_limits<std::int32_t>::max();
}

// The condition lets SQLite use an index without Nulls, too.
void RequireInRange(sqlite3* db, const PhysicalTable& table, const FieldDef& field) {
    NativeStatement ends(db, fmt::format("SELECT (SELECT min({0}) FROM {1} WHERE {0} IS NOT NULL), "
                                         "(SELECT max({0}) FROM {1} WHERE {0} IS NOT NULL)",
                                         QuoteName(field.name), QuoteName(table.def.name)));
    if (!ends.Step()) return;
    if (IsInRange(ValueIn(ends.Handle(), 0)) && IsInRange(ValueIn(ends.Handle(), 1))) return;
    throw StoreError(
        ErrorNumber::CorruptFile,
        fmt::format("The DataSet is damaged: a value is out of range for the field '{}' of the table '{}'.",
                    field.name, table.def.name));
}

}  // namespace

void RequireIdsInRange(sqlite3* db, const Tables& tables) {
    for (const auto& table : tables.All()) {
        if (table->def.IsLinked()) continue;
        for (const FieldDef* field : IndexedNumbers(*table)) RequireInRange(db, *table, *field);
    }
}

}  // namespace quillon::store
