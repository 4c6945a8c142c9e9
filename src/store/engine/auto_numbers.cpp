#include "store/engine/auto_numbers.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>

#include "store/engine/native.h"

namespace quillon::store {

namespace {

constexpr std::int64_t kLast = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int32_t>::min();

[[noreturn]] void FailDamaged(const PhysicalTable& table, std::int64_t number) {
    throw StoreError(
        ErrorNumber::CorruptFile,
        fmt::format("The DataSet is damaged: {} is out of range for the field '{}' of the table '{}'.",
                    number, table.autoField, table.def.name));
}

// `function` is min or max. 0 for an empty table.
std::int64_t Extreme(sqlite3* db, const PhysicalTable& table, std::string_view function) {
    NativeStatement extreme(db, fmt::format("SELECT {}({}) FROM {}", function, QuoteName(table.autoField),
                                            QuoteName(table.def.name)));
    return extreme.Step() ? extreme.Long(0) : 0;
}

}  // namespace

void AutoNumbers::Attach(sqlite3* db) {
    db_ = db;
    for (const auto& table : tables_.All()) {
        if (table->autoField.empty() || table->def.IsLinked()) continue;
        const std::int64_t stored = StoredNumber(*table);
        if (stored < 1 || stored > kLast + 1) FailDamaged(*table, stored);
        const std::int64_t least = Extreme(db_, *table, "min");
        if (least < kLeast || least > kLast) FailDamaged(*table, least);
        const std::int64_t most = Extreme(db_, *table, "max");
        if (most < kLeast || most > kLast) FailDamaged(*table, most);
    }
}

std::int64_t AutoNumbers::StoredNumber(const PhysicalTable& table) const {
    NativeStatement stored(db_, "SELECT next FROM qln_autonumber WHERE table_name = ?1");
    stored.Bind(1, std::string_view(table.def.name));
    return stored.Step() ? stored.Long(0) : 1;
}

AutoNumbers::Counter& AutoNumbers::CounterOf(std::string_view table) {
    const auto found = counters_.find(table);
    if (found != counters_.end()) return found->second;
    const PhysicalTable& physical = tables_.Require(table);
    Counter counter;
    counter.saved = std::clamp(StoredNumber(physical), std::int64_t{1}, kLast + 1);
    const std::int64_t used = std::clamp(Extreme(db_, physical, "max"), std::int64_t{0}, kLast);
    counter.next = std::max(counter.saved, used + 1);
    return counters_.emplace(physical.def.name, counter).first->second;
}

std::int64_t AutoNumbers::Next(std::string_view table) {
    Counter& counter = CounterOf(table);
    if (counter.next > kLast)
        throw StoreError(
            ErrorNumber::NumericOverflow,
            fmt::format("The table '{}' has no AutoNumber left: {} was the last.", table, kLast));
    return counter.next++;
}

// Creates the counter, so that Note allocates nothing after the row is stored.
void AutoNumbers::Check(std::string_view table, std::int64_t given) {
    CounterOf(table);
    if (given < kLeast || given > kLast)
        throw StoreError(
            ErrorNumber::NumericOverflow,
            fmt::format("Numeric field overflow: {} is no AutoNumber of the table '{}'.", given, table));
}

void AutoNumbers::Note(std::string_view table, std::int64_t given) {
    Check(table, given);
    Counter& counter = CounterOf(table);
    counter.next = std::max(counter.next, given + 1);
}

void AutoNumbers::SaveCounter(const PhysicalTable& table, Counter& counter) {
    if (counter.saved == counter.next) return;
    NativeStatement store(db_, "INSERT OR REPLACE INTO qln_autonumber (table_name, next) VALUES (?1, ?2)");
    store.Bind(1, std::string_view(table.def.name));
    store.Bind(2, counter.next);
    store.Step();
    counter.saved = counter.next;
}

void AutoNumbers::Save(std::string_view table) {
    const PhysicalTable& physical = tables_.Require(table);
    if (!physical.autoField.empty()) SaveCounter(physical, CounterOf(physical.def.name));
}

void AutoNumbers::SaveAll() {
    for (auto& [name, counter] : counters_)
        if (const PhysicalTable* table = tables_.Find(name)) SaveCounter(*table, counter);
}

void AutoNumbers::ForgetSaved() noexcept {
    for (auto& [name, counter] : counters_) counter.saved = 0;
}

void AutoNumbers::Remove(std::string_view table) {
    const auto found = counters_.find(table);
    if (found != counters_.end()) counters_.erase(found);
}

void AutoNumbers::KeepExisting() {
    std::erase_if(counters_, [&](const auto& counter) { return tables_.Find(counter.first) == nullptr; });
}

}  // namespace quillon::store
