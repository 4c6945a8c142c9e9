// A unit of work: the writes between its construction and Commit() are stored completely or not at all.
// Writers make one for each statement or record. Units do not nest.
//
// Without Commit() the destructor rolls the unit back. It never throws: the caller sees the error that ended
// the unit.
#pragma once

#include "store/engine.h"

namespace quillon::store {

class Unit {
public:
    // Throws StoreError when a unit is already open.
    explicit Unit(Engine& engine) : engine_(engine) { engine_.BeginTrans(); }
    ~Unit() {
        if (open_) engine_.Abandon();
    }
    Unit(const Unit&) = delete;
    Unit& operator=(const Unit&) = delete;

    // After an error nothing of the unit is in the file.
    void Commit() {
        open_ = false;
        engine_.CommitTrans();
    }

private:
    Engine& engine_;
    bool open_ = true;
};

}  // namespace quillon::store
