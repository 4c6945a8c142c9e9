// The statements of one connection: translated once from the dialect, kept by text, and their prepared forms
// used again. Two users of one text at the same time get two prepared forms.
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

// A statement ready to run again and again.
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

    // Returns the same object for the same text until Forget(); a very long text is translated each time.
    std::shared_ptr<Compiled> Compile(std::string_view text);
    // The cached statement; nullptr when the text was not compiled since Forget().
    std::shared_ptr<Compiled> Find(std::string_view text) const;
    std::shared_ptr<Compiled> CompileQuery(std::string_view name, const std::string& text);
    // Compiles without keeping.
    std::shared_ptr<Compiled> Prepare(std::string_view text, const dialect::Statement& statement);
    // The schema or a stored query has changed.
    void Forget() noexcept;
    // Finalizes every prepared form that is not on loan, so that the connection can be closed.
    void FinalizeIdle() noexcept;

    // `values` has one for each parameter. A value that its field or parameter refuses is a StoreError.
    static void Bind(const Compiled& compiled, sqlite3_stmt* statement, const std::vector<Value>& values);

private:
    friend class Lease;
    const dialect::Schema& schema_;
    sqlite3* db_ = nullptr;
    NameMap<std::shared_ptr<Compiled>> queries_;
    std::unordered_map<std::string, std::shared_ptr<Compiled>> byText_;
    std::vector<std::weak_ptr<Compiled>> all_;  // also those that the caches have dropped
};

// A prepared form on loan; it goes back by scope, reset and ready for the next user.
class Lease {
public:
    Lease() = default;
    Lease(const Statements& statements, std::shared_ptr<Compiled> compiled);
    ~Lease() { GiveBack(); }
    Lease(const Lease&) = delete;
    Lease& operator=(const Lease&) = delete;
    Lease(Lease&& other) noexcept { *this = std::move(other); }
    Lease& operator=(Lease&& other) noexcept;

    // nullptr once it has been given back.
    sqlite3_stmt* Statement() const { return statement_; }
    void GiveBack() noexcept;

private:
    const Statements* statements_ = nullptr;
    std::shared_ptr<Compiled> compiled_;
    sqlite3_stmt* statement_ = nullptr;
};

}  // namespace quillon::store
