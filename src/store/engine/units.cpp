#include "store/engine/units.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <new>
#include <utility>

#include "store/engine/native.h"

namespace quillon::store {

namespace {

constexpr auto kJobCommitInterval = std::chrono::milliseconds(400);
constexpr const char* kUnit = "qln_unit";

// True for an error of the whole file, which the next write would get again.
bool IsOfTheFile(const std::exception_ptr& failure) noexcept {
    try {
        std::rethrow_exception(failure);
    } catch (const StoreError& error) {
        return error.EndsJob();
    } catch (...) {
        return false;
    }
}

}  // namespace

FileIdentity IdentityOf(const std::string& path) noexcept {
    struct stat info {};
    if (stat(path.c_str(), &info) != 0) return {};
    return {static_cast<std::uint64_t>(info.st_dev), static_cast<std::uint64_t>(info.st_ino)};
}

void Units::Attach(sqlite3* db, const std::string& path, const FileIdentity& identity, bool readOnly) {
    path_ = path;
    db_ = db;
    identity_ = identity;
    readOnly_ = readOnly;
}

void Units::RequireSameFile() const {
    if (!(IdentityOf(path_) == identity_)) ThrowCode(SQLITE_READONLY_DBMOVED);
}

void Units::BeginDurable() {
    if (durableOpen_) return;
    RequireSameFile();
    ExecNative(db_, "BEGIN IMMEDIATE");
    durableOpen_ = true;
    lastCommit_ = std::chrono::steady_clock::now();
}

void Units::CommitDurable() {
    NoticeRollback();
    if (!durableOpen_) return;
    try {
        RequireSameFile();
        ExecNative(db_, "COMMIT");
    } catch (...) {
        UndoDurable();
        if (engine_.inJob && !std::exchange(jobFailed_, true)) failure_ = std::current_exception();
        throw;
    }
    durableOpen_ = false;
    definitionsChanged_ = false;
}

// After some failures (a full disk) SQLite has rolled back by itself. The rest of the unit must then not be
// stored, and during a job the previous units are lost too.
bool Units::NoticeRollback() noexcept {
    if (!durableOpen_ || sqlite3_get_autocommit(db_) == 0) return false;
    durableOpen_ = false;
    unitLost_ = unitLost_ || unitOpen_;
    jobFailed_ = jobFailed_ || engine_.inJob;
    unitOpen_ = false;
    Forget();
    return true;
}

// Makes the connection read its cached state again after a rollback.
void Units::Forget() noexcept {
    listener_.RolledBack(std::exchange(definitionsChanged_, false));
}

void Units::Recover() {
    if (!durableOpen_ && !RollBackNative(db_)) throw std::bad_alloc();
}

void Units::RequireUnit() {
    Recover();
    NoticeRollback();
    if (!unitLost_ && !jobFailed_) return;
    if (failure_) std::rethrow_exception(failure_);
    ThrowCode(SQLITE_IOERR);
}

void Units::BeforeWrite() {
    if (readOnly_) throw StoreError(ErrorNumber::ReadOnly, "Can't update. The DataSet is read-only.");
    RequireUnit();
    results_.Freeze();
    if (engine_.inJob) BeginDurable();
    if (!durableOpen_) RequireSameFile();
    if (!engine_.inTransaction || unitOpen_) return;
    unitIsSavepoint_ = engine_.inJob;
    if (unitIsSavepoint_) {
        ExecNative(db_, "SAVEPOINT qln_unit");
    } else {
        BeginDurable();
    }
    unitOpen_ = true;
}

void Units::AfterWrite() {
    if (unitOpen_ || !engine_.inJob || engine_.inCommand) return;
    if (std::chrono::steady_clock::now() - lastCommit_ >= kJobCommitInterval) CommitDurable();
}

void Units::WriteFailed() noexcept {
    const bool known = unitLost_ || jobFailed_;
    const bool undone = NoticeRollback();
    if (known) return;
    const std::exception_ptr failure = std::current_exception();
    jobFailed_ = jobFailed_ || (engine_.inJob && IsOfTheFile(failure));
    if (undone || jobFailed_) failure_ = failure;
}

void Units::Commit() {
    Recover();
    NoticeRollback();
    if (std::exchange(unitLost_, false)) {
        const std::exception_ptr failure = jobFailed_ ? failure_ : std::exchange(failure_, nullptr);
        if (failure) std::rethrow_exception(failure);
        ThrowCode(SQLITE_IOERR);
    }
    if (!unitOpen_) return;
    if (unitIsSavepoint_) {
        try {
            ExecNative(db_, "RELEASE qln_unit");
        } catch (...) {
            UndoUnit();
            throw;
        }
        unitOpen_ = false;
        if (engine_.inJob) return AfterWrite();
    }
    unitOpen_ = false;
    CommitDurable();
}

// Earlier units of a job that has ended are still not durable.
void Units::Rollback() {
    NoticeRollback();
    unitLost_ = false;
    if (!jobFailed_) failure_ = nullptr;
    if (!unitOpen_) return;
    results_.FreezeOrBreak();
    UndoUnit();
    if (!engine_.inJob) CommitDurable();
}

// If the savepoint cannot be undone, the durable commit is rolled back, which ends the job.
void Units::UndoUnit() noexcept {
    unitOpen_ = false;
    if (!unitIsSavepoint_) return UndoDurable();
    if (UndoSavepoint(db_, kUnit)) return Forget();
    UndoDurable();
    jobFailed_ = engine_.inJob;
}

void Units::UndoDurable() noexcept {
    RollBackNative(db_);
    durableOpen_ = false;
    unitOpen_ = false;
    Forget();
}

void Units::AbandonJob() noexcept {
    jobFailed_ = false;
    unitLost_ = false;
    failure_ = nullptr;
    NoticeRollback();
    if (!durableOpen_) return;
    results_.FreezeOrBreak();
    UndoDurable();
}

void Units::EndJob() {
    const bool failed = std::exchange(jobFailed_, false);
    const std::exception_ptr failure = failed ? std::exchange(failure_, nullptr) : nullptr;
    // An open unit commits or rolls back later, together with the units before it.
    if (!unitOpen_) CommitDurable();
    if (failure) std::rethrow_exception(failure);
    if (failed) ThrowCode(SQLITE_IOERR);
}

}  // namespace quillon::store
