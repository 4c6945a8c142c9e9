// Memory that runs short on demand: the n-th allocation of the program fails, its own (operator new) and
// SQLite's alike.
#pragma once

namespace quillon::testkit {

// While it lives, allocation number `failing`, counted from 0, fails; those before and after it succeed.
class FailingMemory {
public:
    explicit FailingMemory(long failing);
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    // Allocations since the construction.
    static long Count();
};

}  // namespace quillon::testkit
