#include "store/engine/stored_queries.h"

#include "store/engine/native.h"

namespace quillon::store {

void StoredQueries::Load(sqlite3* db) {
    std::vector<std::pair<std::string, std::string>> queries;
    NameMap<std::size_t> byName;
    NativeStatement stored(db, "SELECT name, sql FROM qln_queries ORDER BY position");
    while (stored.Step()) {
        byName.emplace(stored.Text(0), queries.size());
        queries.emplace_back(stored.Text(0), stored.Text(1));
    }
    queries_.swap(queries);
    byName_.swap(byName);
}

const std::string* StoredQueries::Text(std::string_view name) const {
    const auto found = byName_.find(name);
    return found == byName_.end() ? nullptr : &queries_[found->second].second;
}

void StoredQueries::Add(sqlite3* db, std::string_view name, std::string_view sql) {
    NativeStatement store(db, "INSERT INTO qln_queries (name, sql) VALUES (?1, ?2)");
    store.Bind(1, name);
    store.Bind(2, sql);
    queries_.emplace_back(name, sql);
    try {
        byName_.emplace(name, queries_.size() - 1);
        store.Step();
    } catch (...) {
        queries_.pop_back();
        const auto found = byName_.find(name);
        if (found != byName_.end()) byName_.erase(found);
        throw;
    }
}

void StoredQueries::Replace(sqlite3* db, std::string_view name, std::string_view sql) {
    NativeStatement store(db, "UPDATE qln_queries SET sql = ?2 WHERE name = ?1 COLLATE NOCASE");
    store.Bind(1, name);
    store.Bind(2, sql);
    store.Step();
}

void StoredQueries::Drop(sqlite3* db, std::string_view name) {
    NativeStatement drop(db, "DELETE FROM qln_queries WHERE name = ?1 COLLATE NOCASE");
    drop.Bind(1, name);
    drop.Step();
}

}  // namespace quillon::store
