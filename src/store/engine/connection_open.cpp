#include <fcntl.h>
#include <fmt/format.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "store/engine.h"
#include "store/engine/connection.h"
#include "store/engine/result_set.h"

namespace quillon::store {

namespace {

constexpr std::int32_t kApplicationId = 0x516C6E44;  // "QlnD"
constexpr std::string_view kMagic("SQLite format 3\0", 16);
constexpr int kMostBytes = 64 * 1024 * 1024;                // of one value
constexpr off_t kMostQuickCheck = off_t{48} * 1024 * 1024;  // of a file: about a tenth of a second
constexpr int kMostSql = 1024 * 1024;

[[noreturn]] void FailPath(ErrorNumber number, std::string_view what, const std::string& path) {
    throw StoreError(number, fmt::format("{} '{}'.", what, path));
}

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

FileIdentity IdentityOf(const std::string& path) {
    struct stat info {};
    if (stat(path.c_str(), &info) != 0) return {};
    return {static_cast<std::uint64_t>(info.st_dev), static_cast<std::uint64_t>(info.st_ino)};
}

// Reads the first bytes with a descriptor of its own; only for a file that this process has not open.
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

// By the header's version for reading. It is read through SQLite's own descriptor: closing another one would
// drop the locks of this process.
bool IsInWriteAheadMode(sqlite3* db) {
    constexpr int kReadVersionAt = 19;
    sqlite3_file* file = nullptr;
    char version = 0;
    if (sqlite3_file_control(db, "main", SQLITE_FCNTL_FILE_POINTER, static_cast<void*>(&file)) != SQLITE_OK)
        return false;
    return file->pMethods->xRead(file, &version, 1, kReadVersionAt) == SQLITE_OK && version == 2;
}

}  // namespace

Connection::Connection(Engine& engine, const std::string& path, bool create) : engine_(engine), path_(path) {
    if (!create) CheckHeader(path);
    try {
        OpenFile(path, create);
    } catch (...) {
        sqlite3_close_v2(db_);
        db_ = nullptr;
        if (create) unlink(path.c_str());
        throw;
    }
}

Connection::~Connection() {
    try {
        Close();
    } catch (const StoreError&) {
        // Nobody is left to tell; what was committed is in the file.
    }
}

// The second is the log of another program's write-ahead mode.
bool Connection::EndedUncleanly() const {
    for (const char* ending : {"-journal", "-wal"}) {
        struct stat info {};
        if (stat((realPath_ + ending).c_str(), &info) == 0 && info.st_size > 0) return true;
    }
    return false;
}

void Connection::OpenFile(const std::string& path, bool create) {
    identity_ = IdentityOf(path);
    char* real = realpath(path.c_str(), nullptr);
    realPath_ = real == nullptr ? path : real;
    std::free(real);
    const bool unclean = !create && EndedUncleanly();
    const int code =
        sqlite3_open_v2(realPath_.c_str(), &db_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code != SQLITE_OK) ThrowNative(db_, code);
    readOnly_ = sqlite3_db_readonly(db_, "main") == 1 || access(FolderOf(realPath_).c_str(), W_OK) != 0;
    Harden();
    Configure();
    if (create) {
        ExecNative(db_, fmt::format("PRAGMA application_id = {}", kApplicationId));
        ExecNative(db_,
                   "BEGIN; CREATE TABLE qln_queries (position INTEGER PRIMARY KEY, name TEXT, sql TEXT);"
                   "CREATE TABLE qln_autonumber (table_name TEXT PRIMARY KEY, next INTEGER) WITHOUT ROWID;"
                   "CREATE TABLE qln_waiting_indexes (name TEXT PRIMARY KEY) WITHOUT ROWID; COMMIT");
    } else {
        CheckFile(unclean);
        // One file, that opens on a read-only medium too: not every program leaves it so.
        if (!readOnly_) ExecNative(db_, "PRAGMA journal_mode = DELETE");
    }
    LoadSchema();
    if (!readOnly_) BuildLookupIndexes();
}

void Connection::Harden() {
    sqlite3_extended_result_codes(db_, 1);
    sqlite3_db_config(db_, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(db_, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(db_, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(db_, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_db_config(db_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(db_, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_limit(db_, SQLITE_LIMIT_LENGTH, kMostBytes);
    sqlite3_limit(db_, SQLITE_LIMIT_SQL_LENGTH, kMostSql);
    sqlite3_limit(db_, SQLITE_LIMIT_TRIGGER_DEPTH, 0);
    RegisterFunctions(db_, *this);
}

// The lock on the file is taken here, and kept until it is closed.
void Connection::Configure() {
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

// A full look after an unclean end; otherwise a quick one, which for a large file would be felt at each
// opening and is left to the checks that SQLite makes of every page it reads. Constraints are not run: they
// are ours only if the file is.
void Connection::CheckFile(bool unclean) {
    struct stat info {};
    if (stat(realPath_.c_str(), &info) != 0) info.st_size = 0;
    {
        // A last page cut short is read as if it ended in zeroes, which no check sees.
        NativeStatement page(db_, "PRAGMA page_size");
        if (page.Step() && info.st_size % page.Long(0) != 0) throw ErrorOf(SQLITE_CORRUPT, "");
    }
    if (!unclean && info.st_size > kMostQuickCheck) return;
    ExecNative(db_, "PRAGMA ignore_check_constraints = ON");
    {
        NativeStatement check(db_, unclean ? "PRAGMA integrity_check(1)" : "PRAGMA quick_check(1)");
        if (!check.Step() || check.Text(0) != "ok") throw ErrorOf(SQLITE_CORRUPT, "");
    }
    ExecNative(db_, "PRAGMA ignore_check_constraints = OFF");
}

void Connection::LoadSchema() {
    tables_.clear();
    tableByName_.clear();
    for (PhysicalTable& table : ReadTables(db_)) {
        tables_.push_back(std::make_unique<PhysicalTable>(std::move(table)));
        tableByName_.emplace(tables_.back()->def.name, tables_.back().get());
    }
    for (const PhysicalTable& link : links_) {
        tables_.push_back(std::make_unique<PhysicalTable>(link));
        tableByName_.emplace(link.def.name, tables_.back().get());
    }
    LoadQueries();
}

void Connection::Close() {
    if (db_ == nullptr) return;
    for (ResultSet* result : std::vector<ResultSet*>(results_)) result->Close();
    std::exception_ptr failure;
    try {
        if (unitOpen_) RollbackUnit();
        if (!readOnly_) {
            SaveCounters();
            CommitDurable();
        }
    } catch (...) {
        failure = std::current_exception();
    }
    for (const std::weak_ptr<Compiled>& weak : allCompiled_)
        if (const std::shared_ptr<Compiled> compiled = weak.lock()) compiled->FinalizeIdle();
    // Giving up the exclusive lock removes the journal, so that one file is left.
    sqlite3_exec(db_, "PRAGMA locking_mode = NORMAL; SELECT count(*) FROM sqlite_master", nullptr, nullptr,
                 nullptr);
    // One that was there at the opening stays even so, until it is asked for.
    if (!readOnly_ && access((realPath_ + "-journal").c_str(), F_OK) == 0)
        sqlite3_exec(db_, "PRAGMA journal_mode = PERSIST; PRAGMA journal_mode = DELETE", nullptr, nullptr,
                     nullptr);
    sqlite3_close_v2(db_);
    db_ = nullptr;
    if (failure) std::rethrow_exception(failure);
}

}  // namespace quillon::store
