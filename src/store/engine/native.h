// SQLite's own interface, wrapped just enough to be safe: statements that are finalized, results that are
// checked, and errors as exceptions. The files of store/ that need SQLite's own SQL use it.
//
// Short memory is always std::bad_alloc; every other failure is a StoreError.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "core/value.h"
#include "store/error.h"

struct sqlite3;
struct sqlite3_stmt;

namespace quillon::store {

// The error of the last call on `db` that failed with `code`, in the store's numbers and words.
[[noreturn]] void ThrowNative(sqlite3* db, int code);
[[noreturn]] void ThrowCode(int code, std::string_view nativeMessage = {});
// Throws unless `code` is SQLITE_OK.
void CheckNative(sqlite3* db, int code);

// Throws unless `report`, the first row of SQLite's check of a file, is "ok".
void RequireWhole(std::string_view report);

// Prepares one statement; the caller finalizes it. `persistent` for one that is used again.
sqlite3_stmt* PrepareNative(sqlite3* db, std::string_view sql, bool persistent = false);
void ExecNative(sqlite3* db, const std::string& sql);

// True while there is a row.
bool StepNative(sqlite3_stmt* statement);
void BindNative(sqlite3_stmt* statement, int place, const Value& value);
bool IsNullIn(sqlite3_stmt* statement, int column);
std::int64_t LongIn(sqlite3_stmt* statement, int column);
// "" for Null; valid until the next step.
std::string_view TextIn(sqlite3_stmt* statement, int column);
Value ValueIn(sqlite3_stmt* statement, int column);

class NativeStatement {
public:
    NativeStatement(sqlite3* db, std::string_view sql, bool persistent = false)
        : statement_(PrepareNative(db, sql, persistent)) {}
    ~NativeStatement();
    NativeStatement(const NativeStatement&) = delete;
    NativeStatement& operator=(const NativeStatement&) = delete;

    void Bind(int place, std::string_view text);
    void Bind(int place, std::int64_t number);
    void BindNull(int place);
    // Without a copy: the text must live until the statement is reset.
    void BindInPlace(int place, std::string_view text);
    void BindValue(int place, const Value& value) { BindNative(statement_, place, value); }
    bool Step() { return StepNative(statement_); }
    void Reset();
    std::string_view Text(int column) const { return TextIn(statement_, column); }
    std::int64_t Long(int column) const { return LongIn(statement_, column); }
    bool IsNull(int column) const { return IsNullIn(statement_, column); }
    sqlite3_stmt* Handle() const { return statement_; }

private:
    sqlite3_stmt* statement_;
};

// Turns within a long statement: while it lives, `goOn` is called every few milliseconds in which a statement
// of `db` runs. When it returns false the statement fails as interrupted. It must not throw or use `db`,
// which must be open at the end.
class NativeTurns {
public:
    NativeTurns(sqlite3* db, std::function<bool()> goOn);
    ~NativeTurns();
    NativeTurns(const NativeTurns&) = delete;
    NativeTurns& operator=(const NativeTurns&) = delete;

private:
    static int Turn(void* turns);

    sqlite3* db_;
    std::function<bool()> goOn_;
};

// Rolls back what is open on `db`; false when it is still open, because memory is too short even for that.
bool RollBackNative(sqlite3* db) noexcept;

// A savepoint by scope: without Keep() the destructor undoes what came after it. Where memory is too short
// for that, it rolls the whole transaction back.
class Savepoint {
public:
    Savepoint(sqlite3* db, const char* name);
    ~Savepoint();
    Savepoint(const Savepoint&) = delete;
    Savepoint& operator=(const Savepoint&) = delete;
    void Keep();

private:
    sqlite3* db_;
    const char* name_;
    bool kept_ = false;
};
// Undoes everything since the savepoint and removes it; false when that failed.
bool UndoSavepoint(sqlite3* db, const char* name) noexcept;

}  // namespace quillon::store
