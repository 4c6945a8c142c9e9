// One unit of work: what is written between its construction and Commit() is stored as a whole, or not at
// all. Writers make one for each statement or record. Units do not nest.
//
// Without Commit() the destructor rolls the unit back. It never throws: the caller sees the error that ended
// the unit.
#pragma once

#include "store/engine.h"

namespace quillon::store {

class Unit {
public:
    // StoreError when a unit is open already.
    explicit Unit(Engine& engine) : engine_(engine) { engine_.BeginTrans(); }
    ~Unit() {
        if (open_) engine_.Abandon();
    }
    Unit(const Unit&) = delete;
    Unit& operator=(const Unit&) = delete;

    // An error leaves nothing of the unit in the file.
    void Commit() {
        open_ = false;
        engine_.CommitTrans();
    }

private:
    Engine& engine_;
    bool open_ = true;
};

}  // namespace quillon::store
