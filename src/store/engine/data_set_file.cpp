#include "store/engine/data_set_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#include "store/engine/foreign_logs.h"
#include "store/engine/functions.h"
#include "store/engine/native.h"

namespace quillon::store {

namespace {

constexpr std::int32_t kApplicationId = 0x516C6E44;  // "QlnD"
constexpr std::string_view kMagic("SQLite format 3\0", 16);
constexpr int kMostBytes = 64 * 1024 * 1024;                // of one value
constexpr off_t kMostQuickCheck = off_t{48} * 1024 * 1024;  // of a file: about a tenth of a second
constexpr int kMostSql = 16 * 1024 * 1024;

[[noreturn]] void FailPath(ErrorNumber number, std::string_view what, const std::string& path) {
    throw StoreError(number, fmt::format("{} '{}'.", what, path));
}

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

// Reads the first bytes with a separate descriptor; only for a file that this process does not have open.
void CheckHeader(const std::string& path) {
    struct stat info {};
    if (stat(path.c_str(), &info) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            FailPath(ErrorNumber::FileNotFound, "Could not find the file", path);
        FailPath(ErrorNumber::CannotOpenFile,
                 fmt::format("The file cannot be opened ({}):", std::strerror(errno)), path);
    }
    if (!S_ISREG(info.st_mode)) FailPath(ErrorNumber::UnrecognizedFormat, "This is not a DataSet:", path);
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        FailPath(ErrorNumber::CannotOpenFile,
                 fmt::format("The file cannot be opened ({}):", std::strerror(errno)), path);
    std::array<unsigned char, 100> header{};
    const ssize_t got = read(file, header.data(), header.size());
    close(file);
    const bool whole = got == static_cast<ssize_t>(header.size());
    const std::uint32_t id = static_cast<std::uint32_t>(header[68]) << 24 |
                             static_cast<std::uint32_t>(header[69]) << 16 |
                             static_cast<std::uint32_t>(header[70]) << 8 | header[71];
    const bool ours = whole && std::memcmp(header.data(), kMagic.data(), kMagic.size()) == 0 &&
                      id == static_cast<std::uint32_t>(kApplicationId);
    if (!ours) FailPath(ErrorNumber::UnrecognizedFormat, "This is not a DataSet:", path);
}

// Tests the read version in the header, through SQLite's descriptor, because closing another one would drop
// the locks of this process.
bool IsInWriteAheadMode(sqlite3* db) {
    constexpr int kReadVersionAt = 19;
    sqlite3_file* file = nullptr;
    char version = 0;
    if (sqlite3_file_control(db, "main", SQLITE_FCNTL_FILE_POINTER, static_cast<void*>(&file)) != SQLITE_OK)
        return false;
    return file->pMethods->xRead(file, &version, 1, kReadVersionAt) == SQLITE_OK && version == 2;
}

void Harden(sqlite3* db) {
    constexpr struct {
        int option, value;
    } options[] = {{SQLITE_DBCONFIG_DEFENSIVE, 1},      {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
                   {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0}, {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
                   {SQLITE_DBCONFIG_DQS_DML, 0},        {SQLITE_DBCONFIG_DQS_DDL, 0}};
    sqlite3_extended_result_codes(db, 1);
    for (const auto& [option, value] : options) sqlite3_db_config(db, option, value, nullptr);
    sqlite3_limit(db, SQLITE_LIMIT_LENGTH, kMostBytes);
    sqlite3_limit(db, SQLITE_LIMIT_SQL_LENGTH, kMostSql);
    sqlite3_limit(db, SQLITE_LIMIT_TRIGGER_DEPTH, 0);
}

}  // namespace

DataSetFile::DataSetFile(const std::string& path, bool create, AutoNumbers& autoNumbers) {
    if (!create) CheckHeader(path);
    try {
        Open(path, create, autoNumbers);
    } catch (...) {
        Abandon();
        throw;
    }
}

void DataSetFile::Abandon() noexcept {
    sqlite3_close_v2(db_);
    db_ = nullptr;
}

// The second file is the log of another program in write-ahead mode.
bool DataSetFile::EndedUncleanly() const {
    for (const std::string& left : {journalPath_, realPath_ + "-wal"}) {
        struct stat info {};
        if (stat(left.c_str(), &info) == 0 && info.st_size > 0) return true;
    }
    return false;
}

void DataSetFile::Open(const std::string& path, bool create, AutoNumbers& autoNumbers) {
    identity_ = IdentityOf(path);
    char* real = realpath(path.c_str(), nullptr);
    if (real == nullptr && errno == ENOMEM) throw std::bad_alloc();
    realPath_ = path;
    if (real != nullptr) {
        const std::unique_ptr<char, void (*)(void*)> owner(real, std::free);
        realPath_ = real;
    }
    journalPath_ = realPath_ + "-journal";
    RefuseForeignLogs(realPath_);
    const bool unclean = !create && EndedUncleanly();
    const int code =
        sqlite3_open_v2(realPath_.c_str(), &db_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code != SQLITE_OK) ThrowNative(db_, code);
    readOnly_ = sqlite3_db_readonly(db_, "main") == 1 || access(FolderOf(realPath_).c_str(), W_OK) != 0;
    Harden(db_);
    RegisterFunctions(db_, autoNumbers);
    TakeLock();
    if (create) return MakeOwnTables();
    Check(unclean);
    // Another program may have left a mode that needs a second file.
    if (!readOnly_) ExecNative(db_, "PRAGMA journal_mode = DELETE");
}

void DataSetFile::MakeOwnTables() {
    ExecNative(db_, fmt::format("PRAGMA application_id = {}", kApplicationId));
    ExecNative(db_,
               "BEGIN; CREATE TABLE qln_queries (position INTEGER PRIMARY KEY, name TEXT, sql TEXT);"
               "CREATE TABLE qln_autonumber (table_name TEXT PRIMARY KEY, next INTEGER) WITHOUT ROWID;"
               "CREATE TABLE qln_waiting_indexes (name TEXT PRIMARY KEY) WITHOUT ROWID; COMMIT");
}

void DataSetFile::TakeLock() {
    if (readOnly_ && IsInWriteAheadMode(db_))
        FailPath(ErrorNumber::ReadOnly,
                 "Another program has left a DataSet so that it cannot be opened where it cannot be written:",
                 realPath_);
    ExecNative(db_,
               "PRAGMA locking_mode = EXCLUSIVE; PRAGMA cell_size_check = ON; PRAGMA mmap_size = 0;"
               "PRAGMA synchronous = FULL; PRAGMA cache_size = -65536");
    ExecNative(db_,
               readOnly_ ? "BEGIN; SELECT count(*) FROM sqlite_master; COMMIT" : "BEGIN EXCLUSIVE; COMMIT");
}

// Runs a full check after an unclean end, otherwise a quick one. A large file is not checked, because each
// opening would be slow, and SQLite checks every page that it reads. Constraints are not run, because the
// file is not trusted.
void DataSetFile::Check(bool unclean) {
    struct stat info {};
    if (stat(realPath_.c_str(), &info) != 0) info.st_size = 0;
    {
        // SQLite pads a truncated last page with zeroes, which no check notices.
        NativeStatement page(db_, "PRAGMA page_size");
        if (page.Step() && info.st_size % page.Long(0) != 0) ThrowCode(SQLITE_CORRUPT);
    }
    if (!unclean && info.st_size > kMostQuickCheck) return;
    ExecNative(db_, "PRAGMA ignore_check_constraints = ON");
    {
        NativeStatement check(db_, unclean ? "PRAGMA integrity_check(1)" : "PRAGMA quick_check(1)");
        if (!check.Step()) ThrowCode(SQLITE_CORRUPT);
        RequireWhole(check.Text(0));
    }
    ExecNative(db_, "PRAGMA ignore_check_constraints = OFF");
}

void DataSetFile::Remove() noexcept {
    unlink(realPath_.c_str());
}

// Removes the journal while the lock is still held. A journal without a header contains nothing to roll back;
// SQLite leaves one only when memory is short.
void DataSetFile::LeaveNothingBeside() noexcept {
    const int journal = open(journalPath_.c_str(), O_RDONLY | O_CLOEXEC);
    if (journal < 0) return;
    std::array<char, 8> header{};
    const ssize_t got = read(journal, header.data(), header.size());
    close(journal);
    if (got >= 0 && header == std::array<char, 8>{}) unlink(journalPath_.c_str());
}

void DataSetFile::Close() noexcept {
    if (db_ == nullptr) return;
    // A journal beside a file that replaced this one is not ours.
    const bool ours = !readOnly_ && IsInPlace();
    const bool settled = RollBackNative(db_);
    // Releasing the exclusive lock removes the journal, so that only one file is left.
    const int unlocked = sqlite3_exec(db_, "PRAGMA locking_mode = NORMAL; SELECT count(*) FROM sqlite_master",
                                      nullptr, nullptr, nullptr);
    if (ours && settled && unlocked != SQLITE_OK) LeaveNothingBeside();
    // A journal that existed at the opening is removed only by a change of the journal mode.
    if (ours && access(journalPath_.c_str(), F_OK) == 0)
        sqlite3_exec(db_, "PRAGMA journal_mode = PERSIST; PRAGMA journal_mode = DELETE", nullptr, nullptr,
                     nullptr);
    Abandon();
}

}  // namespace quillon::store
