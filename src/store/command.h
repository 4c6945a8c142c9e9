// A user's command that changes the DataSet, such as saving or deleting a record, as one durable commit. The
// units inside it (store/unit.h) can still be undone one by one. After a kill or a power loss the DataSet
// holds either all of the command or nothing.
//
// Without Commit() the destructor rolls everything back. It never throws.
#pragma once

#include "store/engine.h"

namespace quillon::store {

class Command {
public:
    // Throws StoreError inside a transaction, a job or another command.
    explicit Command(Engine& engine) : engine_(engine) { engine_.BeginCommand(); }
    ~Command() {
        if (open_) engine_.AbandonCommand();
    }
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    // After an error nothing of the command is in the file.
    void Commit() {
        open_ = false;
        engine_.CommitCommand();
    }

private:
    Engine& engine_;
    bool open_ = true;
};

}  // namespace quillon::store
