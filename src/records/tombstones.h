// The rows of db_tombstone: keys of deleted rows that the authority had assigned, so that the deletion can be
// reported to it.
//
// Callers write the tombstone before they delete such a row, and remove it when they store the same key
// again. A key that exists only locally (an authority's id that is Null or 0) gets none; the callers test
// that.
#pragma once

#include <optional>
#include <string_view>

#include "core/value.h"
#include "records/record_store.h"

namespace quillon::records {

// Adds a row in its own unit. A key is stored only when all before it are given. Returns whether the row was
// stored; a failure is not reported.
bool WriteTombstone(const RecordStore& records, std::string_view table_name, const Value& pk1,
                    const std::optional<Value>& pk2 = {}, const std::optional<Value>& pk3 = {},
                    const std::optional<Value>& pk4 = {});

// Removes the rows with these keys. Text is compared trimmed and case-sensitive. A failure is reported.
void RemoveTombstone(const RecordStore& records, std::string_view table_name, const Value& pk1,
                     const std::optional<Value>& pk2 = {}, const std::optional<Value>& pk3 = {},
                     const std::optional<Value>& pk4 = {});

}  // namespace quillon::records
