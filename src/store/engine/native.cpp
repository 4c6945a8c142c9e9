#include "store/engine/native.h"

#include <fmt/format.h>
#include <sqlite3.h>

namespace quillon::store {

namespace {

constexpr std::string_view kDuplicate =
    "The changes were not stored because they would create duplicate values in the index or primary key. "
    "Change the "
    "data in the field or fields that contain duplicate data.";

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

}  // namespace

StoreError ErrorOf(int code, std::string_view message) {
    switch (code & 0xff) {
        case SQLITE_CONSTRAINT:
            return ConstraintError(code, message);
        case SQLITE_FULL:
            return {ErrorNumber::DiskFull, "Not enough space on disk."};
        case SQLITE_IOERR:
            return {ErrorNumber::DiskError, "Disk error: reading or writing the file failed."};
        case SQLITE_READONLY:
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
                    "The file cannot be opened. You need permission to use its folder."};
        case SQLITE_TOOBIG:
            return {ErrorNumber::FieldTooSmall, "The value is too large to store."};
        default:
            return {ErrorNumber::SyntaxError, fmt::format("The statement failed: {}.", message)};
    }
}

void ThrowNative(sqlite3* db, int code) {
    throw ErrorOf(sqlite3_extended_errcode(db) == SQLITE_OK ? code : sqlite3_extended_errcode(db),
                  sqlite3_errmsg(db));
}

sqlite3_stmt* PrepareNative(sqlite3* db, std::string_view sql, bool persistent) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(db, sql.data(), static_cast<int>(sql.size()),
                                        persistent ? SQLITE_PREPARE_PERSISTENT : 0, &statement, nullptr);
    if (code != SQLITE_OK) ThrowNative(db, code);
    return statement;
}

void ExecNative(sqlite3* db, const std::string& sql) {
    const int code = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) ThrowNative(db, code);
}

NativeStatement::NativeStatement(sqlite3* db, std::string_view sql)
    : db_(db), statement_(PrepareNative(db, sql)) {}

NativeStatement::~NativeStatement() {
    sqlite3_finalize(statement_);
}

void NativeStatement::Bind(int place, std::string_view text) {
    sqlite3_bind_text64(statement_, place, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void NativeStatement::Bind(int place, std::int64_t number) {
    sqlite3_bind_int64(statement_, place, number);
}

void NativeStatement::BindValue(int place, const Value& value) {
    if (value.IsText()) {
        Bind(place, std::string_view(value.Text()));
    } else if (value.IsNull()) {
        sqlite3_bind_null(statement_, place);
    } else if (value.IsReal()) {
        sqlite3_bind_double(statement_, place, value.Real());
    } else {
        Bind(place, value.IsBoolean() ? std::int64_t{value.AsBoolean()} : value.AsLong());
    }
}

bool NativeStatement::Step() {
    const int code = sqlite3_step(statement_);
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) ThrowNative(db_, code);
    return false;
}

void NativeStatement::Reset() {
    sqlite3_reset(statement_);
}

std::string_view NativeStatement::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    if (text == nullptr) return {};
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

std::int64_t NativeStatement::Long(int column) const {
    return sqlite3_column_int64(statement_, column);
}

bool NativeStatement::IsNull(int column) const {
    return sqlite3_column_type(statement_, column) == SQLITE_NULL;
}

}  // namespace quillon::store
