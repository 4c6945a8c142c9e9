// A thin wrapper around SQLite's interface: finalizes statements, checks results, and throws errors. Used by
// the files of store/ that need SQLite's own SQL.
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

// Throws the error of the last call on `db`, which failed with `code`, as a StoreError.
[[noreturn]] void ThrowNative(sqlite3* db, int code);
[[noreturn]] void ThrowCode(int code, std::string_view nativeMessage = {});
// Throws unless `code` is SQLITE_OK.
void CheckNative(sqlite3* db, int code);

// Throws unless `report`, the first row of SQLite's check of a file, is "ok".
void RequireWhole(std::string_view report);

// Prepares one statement; the caller finalizes it. Use `persistent` for one that is kept.
sqlite3_stmt* PrepareNative(sqlite3* db, std::string_view sql, bool persistent = false);
void ExecNative(sqlite3* db, const std::string& sql);

// True while there is a row.
bool StepNative(sqlite3_stmt* statement);
void BindNative(sqlite3_stmt* statement, int place, const Value& value);
bool IsNullIn(sqlite3_stmt* statement, int column);
std::int64_t LongIn(sqlite3_stmt* statement, int column);
// The same for a field: throws CorruptFile for a stored number beyond 32 bits, which no field can have.
std::int64_t FieldLongIn(sqlite3_stmt* statement, int column);
void RequireFieldRange(std::int64_t number);
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
    // Binds without a copy: the text must stay valid until the statement is reset.
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

// Turns within a long statement: during its lifetime `goOn` is called every few milliseconds while a
// statement of `db` runs. When it returns false the statement is interrupted. It must not throw or use `db`,
// which must outlive this object. SQLite takes only one at a time: `outer` rests until this one is gone.
class NativeTurns {
public:
    static constexpr int kInstructions = 10'000;  // of SQLite's machine: about a millisecond

    NativeTurns(sqlite3* db, std::function<bool()> goOn, int instructions = kInstructions,
                NativeTurns* outer = nullptr);
    ~NativeTurns();
    NativeTurns(const NativeTurns&) = delete;
    NativeTurns& operator=(const NativeTurns&) = delete;

private:
    void Install() noexcept;
    static int Turn(void* turns);

    sqlite3* db_;
    std::function<bool()> goOn_;
    int instructions_;
    NativeTurns* outer_;
};

// Rolls back the open transaction of `db`; false when that failed because memory is short.
bool RollBackNative(sqlite3* db) noexcept;

// A savepoint: without Keep() the destructor undoes later changes. When memory is too short for that, it
// rolls back the whole transaction.
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
// Undoes all changes since the savepoint and removes it; false on failure.
bool UndoSavepoint(sqlite3* db, const char* name) noexcept;

}  // namespace quillon::store
