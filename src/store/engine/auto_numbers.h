// The counters behind the AutoNumber fields of one DataSet. A number once given is not given again, not even
// when its row is deleted or its unit rolled back: counters are kept in memory, and written to the file
// before rows are deleted and at the end of a job.
//
// A counter stops at 2,147,483,647, the last number of a Long. It never wraps.
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
    // Refuses a file with a counter or an id that no Long can hold.
    void Attach(sqlite3* db);

    // A fresh number; NumericOverflow when none is left.
    std::int64_t Next(std::string_view table);
    // NumericOverflow when no Long can hold a number that is given by hand.
    void Check(std::string_view table, std::int64_t given);
    // Check, and later numbers are above this one.
    void Note(std::string_view table, std::int64_t given);

    // Writes the counter of the table, or of all tables, to the file where it has changed.
    void Save(std::string_view table);
    void SaveAll();
    // What the file holds is unknown after a rollback; the next Save writes it again.
    void ForgetSaved() noexcept;
    // A new table of this name counts from 1.
    void Remove(std::string_view table);
    // Drops the counters of tables that are gone.
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
