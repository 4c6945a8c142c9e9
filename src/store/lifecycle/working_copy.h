// A copy of an open DataSet for a job that is all or nothing: the job writes to the copy, which replaces the
// DataSet at the end. An error, a Cancel, a kill or a power loss before that leaves the DataSet unchanged.
//
// The copy is a TemporaryFile beside the DataSet. Nothing in it is durable before Replace(). The next copy of
// the same DataSet removes what a killed process left. Every failure is a StoreError.
#pragma once

#include <functional>

#include "core/temporary_file.h"
#include "store/engine.h"

namespace quillon::store {

class WorkingCopy {
public:
    // Copies `original`, which stays open and must not be written before Replace(). `goOn` is called every
    // few milliseconds here and in Replace(), where it must not use the copy; false makes them fail.
    WorkingCopy(Engine& engine, Database& original, std::function<bool()> goOn);
    // Removes the copy, unless it has replaced the DataSet.
    ~WorkingCopy();
    WorkingCopy(const WorkingCopy&) = delete;
    WorkingCopy& operator=(const WorkingCopy&) = delete;

    Database& Db() { return *copy_; }

    // Checks the copy, makes it durable and replaces the DataSet with it in one step; all handles on the old
    // file are closed and `original` becomes a handle on the new file. After a failure the DataSet is
    // unchanged and still open. Fails when the DataSet's file was moved or replaced meanwhile, and when a log
    // of another program is beside it, which SQLite would apply to the copy.
    void Replace(DatabaseHandle& original);

private:
    void RequireSameFile(Database& original) const;
    void RefuseForeignLogs() const;
    void LeaveNoJournal(Database& replaced) const;

    Engine& engine_;
    std::function<bool()> goOn_;
    TemporaryFile file_;
    DatabaseHandle copy_;
};

}  // namespace quillon::store
