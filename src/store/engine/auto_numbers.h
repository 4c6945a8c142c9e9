// The counters of the AutoNumber fields of a DataSet. A number is never reused, not even when its row is
// deleted or its unit rolled back: counters are kept in memory, and written to the file before rows are
// deleted and at the end of a job.
//
// A counter stops at 2,147,483,647, the largest Long. It never wraps.
#pragma once

#include <cstdint>
#include <string_view>

#include "store/engine/tables.h"
#include "store/schema/names.h"

struct sqlite3;

namespace quillon::store {

class AutoNumbers {
public:
    explicit AutoNumbers(const Tables& tables) : tables_(tables) {}
    // Refuses a file with a counter or an id outside the range of a Long.
    void Attach(sqlite3* db);

    // The next number; NumericOverflow when none is left.
    std::int64_t Next(std::string_view table);
    // NumericOverflow when an explicit number is outside the range of a Long.
    void Check(std::string_view table, std::int64_t given);
    // Like Check, and makes later numbers greater than this one.
    void Note(std::string_view table, std::int64_t given);

    // Write the changed counter of the table, or those of all tables, to the file.
    void Save(std::string_view table);
    void SaveAll();
    // After a rollback the counters in the file are unknown; makes the next Save write them again.
    void ForgetSaved() noexcept;
    // A new table of this name starts at 1.
    void Remove(std::string_view table);
    // Drops the counters of deleted tables.
    void KeepExisting();

private:
    struct Counter {
        std::int64_t next = 1;
        std::int64_t saved = 0;  // 0 when unknown
    };
    Counter& CounterOf(std::string_view table);
    void SaveCounter(const PhysicalTable& table, Counter& counter);
    std::int64_t StoredNumber(const PhysicalTable& table) const;

    const Tables& tables_;
    sqlite3* db_ = nullptr;
    NameMap<Counter> counters_;
};

}  // namespace quillon::store
