// The rows of db_tombstone: keys of deleted rows that the authority had assigned, so that it learns of the
// deletion.
//
// Whoever deletes such a row writes its tombstone first, and whoever stores the same key again removes it. A
// key that exists only locally (an authority's id that is Null or 0) gets none; the callers test that.
#pragma once

#include <optional>
#include <string_view>

#include "core/value.h"
#include "records/record_store.h"

namespace quillon::records {

// Adds a row, in a unit of its own. A key is stored only when all before it are given. A failure is not
// reported: the result says whether the row was stored.
bool WriteTombstone(const RecordStore& records, std::string_view table_name, const Value& pk1,
                    const std::optional<Value>& pk2 = {}, const std::optional<Value>& pk3 = {},
                    const std::optional<Value>& pk4 = {});

// Removes the rows with these keys. Text is compared trimmed and case-sensitive. A failure is reported.
void RemoveTombstone(const RecordStore& records, std::string_view table_name, const Value& pk1,
                     const std::optional<Value>& pk2 = {}, const std::optional<Value>& pk3 = {},
                     const std::optional<Value>& pk4 = {});

}  // namespace quillon::records
