// A copy of an open DataSet for a job that is all or nothing: the job writes into the copy, which takes the
// place of the DataSet when the job is through. Until then the DataSet stays as it was, whatever ends the
// job: an error, a Cancel, a kill, a lost power.
//
// The copy lies beside the DataSet as a TemporaryFile. Nothing in it is durable before Replace(). What a
// killed process left is removed by the next copy of the same DataSet. Every failure is a StoreError.
#pragma once

#include <functional>

#include "core/temporary_file.h"
#include "store/engine.h"

namespace quillon::store {

class WorkingCopy {
public:
    // Copies `original`, which stays open and must not be written before Replace(). `goOn` is called every
    // few milliseconds here and in Replace(), where it must not use the copy; when it returns false they
    // fail.
    WorkingCopy(Engine& engine, Database& original, std::function<bool()> goOn);
    // Removes the copy, unless it has taken the DataSet's place.
    ~WorkingCopy();
    WorkingCopy(const WorkingCopy&) = delete;
    WorkingCopy& operator=(const WorkingCopy&) = delete;

    Database& Db() { return *copy_; }

    // Checks the copy, makes it durable and puts it in the place of the DataSet in one step; every handle of
    // `original` is closed then, and it becomes a handle on the new file. After a failure the DataSet is as
    // it was, and open as before. Fails when the DataSet's file was moved or replaced meanwhile, and when a
    // log of another program stands beside it, which would be played into the copy.
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
