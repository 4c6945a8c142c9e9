// One command of the user that changes the DataSet: the save of a record, a delete, an author clean-up. All
// of it is one durable commit. The units inside it (store/unit.h) can still be undone one by one; a process
// that is killed, and a lost power, leave the DataSet as it was before the command or as it is after.
//
// Without Commit() the destructor rolls everything back. It never throws.
#pragma once

#include "store/engine.h"

namespace quillon::store {

class Command {
public:
    // StoreError inside a transaction, a job or another command.
    explicit Command(Engine& engine) : engine_(engine) { engine_.BeginCommand(); }
    ~Command() {
        if (open_) engine_.AbandonCommand();
    }
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    // An error leaves nothing of the command in the file.
    void Commit() {
        open_ = false;
        engine_.CommitCommand();
    }

private:
    Engine& engine_;
    bool open_ = true;
};

}  // namespace quillon::store
