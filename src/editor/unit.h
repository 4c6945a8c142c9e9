// One unit of storing: what is written between its making and Commit() stays whole, and without Commit() goes
// away. The editor's and the import's writers make one for each statement or record; units do not nest.
#pragma once

#include "store/engine.h"

namespace quillon::editor {

class Unit {
public:
    // The store's error when a unit is open already.
    explicit Unit(store::Engine& engine) : engine_(engine) { engine_.BeginTrans(); }
    ~Unit() {
        if (!open_) return;
        try {
            engine_.Rollback();
        } catch (const store::StoreError&) {
            // The failure that brought us here is the one to tell.
            open_ = false;
        }
    }
    Unit(const Unit&) = delete;
    Unit& operator=(const Unit&) = delete;

    void Commit() {
        engine_.CommitTrans();
        open_ = false;
    }

private:
    store::Engine& engine_;
    bool open_ = true;
};

}  // namespace quillon::editor
