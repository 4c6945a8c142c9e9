#include "store/engine/native.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <array>
#include <cstdio>
#include <limits>
#include <new>
#include <utility>

namespace quillon::store {

namespace {

constexpr std::string_view kDuplicate =
    "The changes were not stored because they would create duplicate values in the index or primary key. "
    "Change the data in the field or fields that contain duplicate data.";

constexpr int kAttempts = 3;

// "CHECK constraint failed: unit_name1" and "NOT NULL constraint failed: db_tombstone.pk1" end with the
// field.
std::string FieldIn(std::string_view message) {
    const std::size_t colon = message.find(": ");
    return std::string(colon == std::string_view::npos ? message : message.substr(colon + 2));
}

StoreError ConstraintError(int code, std::string_view message) {
    if (code == SQLITE_CONSTRAINT_CHECK)
        return {ErrorNumber::FieldTooSmall,
                fmt::format("The value does not fit into the field '{}'.", FieldIn(message))};
    if (code == SQLITE_CONSTRAINT_NOTNULL)
        return {ErrorNumber::FieldIsRequired,
                fmt::format("The field '{}' can't contain a Null value.", FieldIn(message))};
    return {ErrorNumber::DuplicateKey, std::string(kDuplicate)};
}

bool IsShortMemory(int code) {
    return (code & 0xff) == SQLITE_NOMEM || code == SQLITE_IOERR_NOMEM;
}

StoreError ErrorOf(int code, std::string_view message) {
    switch (code & 0xff) {
        case SQLITE_CONSTRAINT:
            return ConstraintError(code, message);
        case SQLITE_FULL:
            return {ErrorNumber::DiskFull, "Not enough space on disk."};
        case SQLITE_IOERR:
            return {ErrorNumber::DiskError, "Disk error: reading or writing the file failed."};
        case SQLITE_READONLY:
            if (code == SQLITE_READONLY_DBMOVED)
                return {ErrorNumber::DiskError,
                        "The DataSet was moved or replaced by another program. "
                        "What was not saved before that is lost."};
            if (code == SQLITE_READONLY_DIRECTORY)
                return {ErrorNumber::ReadOnly,
                        "Can't update. The journal of the DataSet cannot be made: its folder is read-only."};
            return {ErrorNumber::ReadOnly, "Can't update. The DataSet is read-only."};
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return {ErrorNumber::FileInUse, "The DataSet is in use by another program."};
        case SQLITE_CORRUPT:
            return {ErrorNumber::CorruptFile, "The DataSet is damaged and cannot be read."};
        case SQLITE_NOTADB:
            return {ErrorNumber::UnrecognizedFormat, "The file is not a DataSet."};
        case SQLITE_CANTOPEN:
        case SQLITE_PERM:
        case SQLITE_AUTH:
            return {ErrorNumber::CannotOpenFile,
                    "The file, or its journal, cannot be opened. You need permission to use its folder."};
        case SQLITE_RANGE:  // of an AutoNumber or an id; functions.cpp reports it so
            return {ErrorNumber::NumericOverflow, std::string(message)};
        case SQLITE_TOOBIG:
            return {ErrorNumber::FieldTooSmall, "The value is too large to store."};
        default:
            return {ErrorNumber::SyntaxError, fmt::format("The statement failed: {}.", message)};
    }
}

}  // namespace

void ThrowCode(int code, std::string_view nativeMessage) {
    if (IsShortMemory(code)) throw std::bad_alloc();
    throw ErrorOf(code, nativeMessage);
}

void ThrowNative(sqlite3* db, int code) {
    if (IsShortMemory(code)) throw std::bad_alloc();
    const int extended = sqlite3_extended_errcode(db);
    ThrowCode(extended == SQLITE_OK ? code : extended, sqlite3_errmsg(db));
}

void CheckNative(sqlite3* db, int code) {
    if (code != SQLITE_OK) ThrowNative(db, code);
}

// The check reports a page as damaged when memory is too short to read it.
void RequireWhole(std::string_view report) {
    if (report.find("error code=7") != std::string_view::npos) throw std::bad_alloc();
    if (report != "ok") ThrowCode(SQLITE_CORRUPT);
}

sqlite3_stmt* PrepareNative(sqlite3* db, std::string_view sql, bool persistent) {
    sqlite3_stmt* statement = nullptr;
    CheckNative(db, sqlite3_prepare_v3(db, sql.data(), static_cast<int>(sql.size()),
                                       persistent ? SQLITE_PREPARE_PERSISTENT : 0, &statement, nullptr));
    return statement;
}

void ExecNative(sqlite3* db, const std::string& sql) {
    CheckNative(db, sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr));
}

bool StepNative(sqlite3_stmt* statement) {
    const int code = sqlite3_step(statement);
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) ThrowNative(sqlite3_db_handle(statement), code);
    return false;
}

void BindNative(sqlite3_stmt* statement, int place, const Value& value) {
    int code = SQLITE_OK;
    if (value.IsNull()) {
        code = sqlite3_bind_null(statement, place);
    } else if (value.IsText()) {
        code = sqlite3_bind_text64(statement, place, value.Text().data(), value.Text().size(),
                                   SQLITE_TRANSIENT, SQLITE_UTF8);
    } else if (value.IsReal()) {
        code = sqlite3_bind_double(statement, place, value.Real());
    } else {
        code = sqlite3_bind_int64(statement, place,
                                  value.IsBoolean() ? std::int64_t{value.AsBoolean()} : value.AsLong());
    }
    CheckNative(sqlite3_db_handle(statement), code);
}

bool IsNullIn(sqlite3_stmt* statement, int column) {
    return sqlite3_column_type(statement, column) == SQLITE_NULL;
}

void RequireFieldRange(std::int64_t number) {
    if (number >= std::numeric_limits<std::int32_t>::min() &&
        number <= std::numeric_limits<std::int32_t>::max())
        return;
    throw StoreError(ErrorNumber::CorruptFile,
                     fmt::format("The DataSet is damaged: no field can have the number {}.", number));
}

std::int64_t FieldLongIn(sqlite3_stmt* statement, int column) {
    // A text may contain a larger number.
    const int type = sqlite3_column_type(statement, column);
    const std::int64_t number = LongIn(statement, column);
    if (type == SQLITE_INTEGER || type == SQLITE_FLOAT) RequireFieldRange(number);
    return number;
}

std::int64_t LongIn(sqlite3_stmt* statement, int column) {
    return sqlite3_column_int64(statement, column);
}

std::string_view TextIn(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    if (text != nullptr) return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
    // A missing text in a column that is not Null did not fit into memory.
    const bool none = IsNullIn(statement, column) || sqlite3_column_bytes(statement, column) == 0;
    if (!none || sqlite3_errcode(sqlite3_db_handle(statement)) == SQLITE_NOMEM) throw std::bad_alloc();
    return {};
}

Value ValueIn(sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
        case SQLITE_NULL:
            return {};
        case SQLITE_INTEGER:
            return LongIn(statement, column);
        case SQLITE_FLOAT:
            return sqlite3_column_double(statement, column);
        default:
            return TextIn(statement, column);
    }
}

NativeStatement::~NativeStatement() {
    sqlite3_finalize(statement_);
}

void NativeStatement::Bind(int place, std::string_view text) {
    CheckNative(
        sqlite3_db_handle(statement_),
        sqlite3_bind_text64(statement_, place, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
}

void NativeStatement::BindInPlace(int place, std::string_view text) {
    CheckNative(sqlite3_db_handle(statement_),
                sqlite3_bind_text64(statement_, place, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void NativeStatement::Bind(int place, std::int64_t number) {
    CheckNative(sqlite3_db_handle(statement_), sqlite3_bind_int64(statement_, place, number));
}

void NativeStatement::BindNull(int place) {
    CheckNative(sqlite3_db_handle(statement_), sqlite3_bind_null(statement_, place));
}

void NativeStatement::Reset() {
    sqlite3_reset(statement_);
}

NativeTurns::NativeTurns(sqlite3* db, std::function<bool()> goOn, int instructions, NativeTurns* outer)
    : db_(db), goOn_(std::move(goOn)), instructions_(instructions), outer_(outer) {
    Install();
}

NativeTurns::~NativeTurns() {
    outer_ != nullptr ? outer_->Install() : sqlite3_progress_handler(db_, 0, nullptr, nullptr);
}

void NativeTurns::Install() noexcept {
    sqlite3_progress_handler(db_, instructions_, Turn, this);
}

int NativeTurns::Turn(void* turns) {
    return static_cast<NativeTurns*>(turns)->goOn_() ? 0 : 1;
}

bool RollBackNative(sqlite3* db) noexcept {
    for (int i = 0; i < kAttempts && sqlite3_get_autocommit(db) == 0; ++i)
        sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
    return sqlite3_get_autocommit(db) != 0;
}

bool UndoSavepoint(sqlite3* db, const char* name) noexcept {
    std::array<char, 128> sql{};
    std::snprintf(sql.data(), sql.size(), "ROLLBACK TO %s; RELEASE %s", name, name);
    for (int i = 0; i < kAttempts; ++i)
        if (sqlite3_exec(db, sql.data(), nullptr, nullptr, nullptr) == SQLITE_OK) return true;
    return false;
}

Savepoint::Savepoint(sqlite3* db, const char* name) : db_(db), name_(name) {
    ExecNative(db_, fmt::format("SAVEPOINT {}", name));
}

Savepoint::~Savepoint() {
    if (!kept_ && !UndoSavepoint(db_, name_)) RollBackNative(db_);
}

void Savepoint::Keep() {
    ExecNative(db_, fmt::format("RELEASE {}", name_));
    kept_ = true;
}

}  // namespace quillon::store
