// The transactions of one connection. A unit is what a program wraps in BeginTrans and CommitTrans; a durable
// commit is SQLite's. Outside a job each unit is one durable commit. During a job a unit is a savepoint, and
// units are gathered into a durable commit every 0.4 seconds.
//
// Every writer goes through Write(). When the disk refuses a write during a job, every later write of that
// job fails with the same error, so that the job ends with one message and not with one for each row.
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
    // `path` is the file behind `db`, with symbolic links followed; `identity` what it was at opening.
    void Attach(sqlite3* db, const std::string& path, const FileIdentity& identity, bool readOnly);

    // Runs `write` in the unit that is open, or as a unit of its own. When it throws, what SQLite has undone
    // by itself is noted, and the error passes on.
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
    // Tables or stored queries have been changed by this write.
    void DefinitionsChanged() { definitionsChanged_ = true; }

    // Nothing when no unit has written here. A commit that fails leaves nothing of the unit.
    void Commit();
    void Rollback();
    // Throws the error that has ended the unit or the job.
    void RequireUnit();
    // Everything that is pending, but for a unit that is open.
    void CommitDurable();
    // The last durable commit of a job, and its error when an earlier one failed.
    void EndJob();
    // Rolls back everything that is pending.
    void AbandonJob() noexcept;

    bool IsDurableOpen() const { return durableOpen_; }
    bool IsUnitOpen() const { return unitOpen_; }
    // Ends a transaction that an earlier failure left behind; std::bad_alloc while memory is too short for
    // it.
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
    bool unitLost_ = false;            // what the engine's transaction wrote here is gone: it must not go on
    bool definitionsChanged_ = false;  // since the last durable commit
    bool jobFailed_ = false;
    std::exception_ptr failure_;  // why the unit is lost or the job has failed; null for a plain disk error
    std::chrono::steady_clock::time_point lastCommit_;
};

}  // namespace quillon::store
