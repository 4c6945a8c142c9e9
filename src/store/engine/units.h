// The transactions of a connection. A unit is the code between BeginTrans and CommitTrans; a durable commit
// is a transaction of SQLite. Outside a job each unit is one durable commit. During a job a unit is a
// savepoint, and units are grouped into a durable commit every 0.4 seconds.
//
// All writes go through Write(). After a disk error during a job, every later write of that job fails with
// the same error, so that the job ends with one message instead of one for each row.
#pragma once

#include <chrono>
#include <exception>
#include <string>

#include "store/engine/engine_state.h"
#include "store/engine/file_identity.h"
#include "store/engine/open_results.h"

struct sqlite3;

namespace quillon::store {

class Units {
public:
    // Notified of every rollback; `definitions` when tables or stored queries may have changed back.
    class Listener {
    public:
        virtual ~Listener() = default;
        virtual void RolledBack(bool definitions) noexcept = 0;
    };

    Units(const EngineState& engine, OpenResults& results, Listener& listener)
        : engine_(engine), results_(results), listener_(listener) {}
    // `path` is the file of `db`, with symbolic links followed; `identity` is its identity at opening.
    void Attach(sqlite3* db, const std::string& path, const FileIdentity& identity, bool readOnly);

    // Runs `write` in the open unit, or in its own unit. When it throws, checks for a rollback by SQLite and
    // rethrows.
    template <typename Action>
    void Write(const Action& write) {
        BeforeWrite();
        try {
            write();
        } catch (...) {
            WriteFailed();
            throw;
        }
        AfterWrite();
    }
    // Call it when this write has changed tables or stored queries.
    void DefinitionsChanged() { definitionsChanged_ = true; }

    // Does nothing when the unit has not written here. After a failed commit nothing of the unit is stored.
    void Commit();
    void Rollback();
    // Throws the error that ended the unit or the job.
    void RequireUnit();
    // Commits everything pending except an open unit.
    void CommitDurable();
    // Makes the last durable commit of a job, or throws the error of an earlier one.
    void EndJob();
    // Rolls back everything that is pending.
    void AbandonJob() noexcept;

    bool IsDurableOpen() const { return durableOpen_; }
    bool IsUnitOpen() const { return unitOpen_; }
    // Ends a transaction that an earlier failure left open; std::bad_alloc while memory is too short for it.
    void Recover();

private:
    void BeforeWrite();
    void AfterWrite();
    void WriteFailed() noexcept;
    void BeginDurable();
    void RequireSameFile() const;
    bool NoticeRollback() noexcept;
    void UndoUnit() noexcept;
    void UndoDurable() noexcept;
    void Forget() noexcept;

    const EngineState& engine_;
    OpenResults& results_;
    Listener& listener_;
    sqlite3* db_ = nullptr;
    std::string path_;
    FileIdentity identity_;
    bool readOnly_ = false;
    bool durableOpen_ = false;  // a transaction of SQLite's is open
    bool unitOpen_ = false;     // the engine's transaction has written here
    bool unitIsSavepoint_ = false;
    bool unitLost_ = false;  // the writes of the engine's transaction were lost, so it must not continue
    bool definitionsChanged_ = false;  // since the last durable commit
    bool jobFailed_ = false;
    std::exception_ptr failure_;  // why the unit is lost or the job has failed; null for a plain disk error
    std::chrono::steady_clock::time_point lastCommit_;
};

}  // namespace quillon::store
