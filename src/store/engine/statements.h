// The statements of a connection: translated once from the dialect, cached by text, with reuse of prepared
// statements. Two simultaneous users of a text get two prepared statements.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "store/dialect/translation.h"
#include "store/schema/names.h"

struct sqlite3;
struct sqlite3_stmt;

namespace quillon::store {

// A translated statement with its prepared SQLite statements.
struct Compiled {
    std::string text;  // in the dialect
    dialect::Translation translation;
    std::vector<std::string> parameterNames;
    std::vector<sqlite3_stmt*> idle;  // prepared and reset

    Compiled();
    ~Compiled() { FinalizeIdle(); }
    Compiled(const Compiled&) = delete;
    Compiled& operator=(const Compiled&) = delete;
    void FinalizeIdle() noexcept;
};

class Statements {
public:
    explicit Statements(const dialect::Schema& schema) : schema_(schema) {}
    void Attach(sqlite3* db) { db_ = db; }

    // Returns the same object for the same text until Forget(); very long texts are not cached.
    std::shared_ptr<Compiled> Compile(std::string_view text);
    // The cached statement; nullptr when the text was not compiled since Forget().
    std::shared_ptr<Compiled> Find(std::string_view text) const;
    std::shared_ptr<Compiled> CompileQuery(std::string_view name, const std::string& text);
    // Compiles without caching.
    std::shared_ptr<Compiled> Prepare(std::string_view text, const dialect::Statement& statement);
    // Call it when the schema or a stored query has changed.
    void Forget() noexcept;
    // Finalizes every prepared statement that is not leased, so that the connection can be closed.
    void FinalizeIdle() noexcept;

    // `values` has one value for each parameter. Throws StoreError for a value that its field or parameter
    // refuses.
    static void Bind(const Compiled& compiled, sqlite3_stmt* statement, const std::vector<Value>& values);

private:
    friend class Lease;
    const dialect::Schema& schema_;
    sqlite3* db_ = nullptr;
    NameMap<std::shared_ptr<Compiled>> queries_;
    std::unordered_map<std::string, std::shared_ptr<Compiled>> byText_;
    std::vector<std::weak_ptr<Compiled>> all_;  // including those dropped from the caches
};

// Leases a prepared statement. The destructor resets and returns it.
class Lease {
public:
    Lease() = default;
    Lease(const Statements& statements, std::shared_ptr<Compiled> compiled);
    ~Lease() { GiveBack(); }
    Lease(const Lease&) = delete;
    Lease& operator=(const Lease&) = delete;
    Lease(Lease&& other) noexcept { *this = std::move(other); }
    Lease& operator=(Lease&& other) noexcept;

    // nullptr once it has been returned.
    sqlite3_stmt* Statement() const { return statement_; }
    void GiveBack() noexcept;

private:
    const Statements* statements_ = nullptr;
    std::shared_ptr<Compiled> compiled_;
    sqlite3_stmt* statement_ = nullptr;
};

}  // namespace quillon::store
