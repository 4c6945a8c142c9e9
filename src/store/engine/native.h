// SQLite itself, wrapped just enough to be safe: one statement, one error. Everything in store/ that speaks
// SQLite's own SQL goes through here; nothing outside store/engine does.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/value.h"
#include "store/error.h"

struct sqlite3;
struct sqlite3_stmt;

namespace quillon::store {

// The StoreError for the connection's last failure, told in the engine's numbers and plain words.
[[noreturn]] void ThrowNative(sqlite3* db, int code);
StoreError ErrorOf(int code, std::string_view nativeMessage);

// Prepares one statement; the caller finalizes it. `persistent` for one that is kept.
sqlite3_stmt* PrepareNative(sqlite3* db, std::string_view sql, bool persistent = false);
void ExecNative(sqlite3* db, const std::string& sql);

class NativeStatement {
public:
    NativeStatement(sqlite3* db, std::string_view sql);
    ~NativeStatement();
    NativeStatement(const NativeStatement&) = delete;
    NativeStatement& operator=(const NativeStatement&) = delete;

    void Bind(int place, std::string_view text);
    void Bind(int place, std::int64_t number);
    void BindValue(int place, const Value& value);
    // True while there is a row.
    bool Step();
    void Reset();
    std::string_view Text(int column) const;  // "" for Null; valid until the next step
    std::int64_t Long(int column) const;
    bool IsNull(int column) const;

private:
    sqlite3* db_;
    sqlite3_stmt* statement_;
};

}  // namespace quillon::store
