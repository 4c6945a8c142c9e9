// Turns within a long statement: lets a job report progress and notice a Cancel while SQLite runs one
// statement over a whole table. The closing pass of an import uses it; loops over rows take their own turns.
#pragma once

#include <functional>

#include "store/engine.h"

namespace quillon::store {

class StatementTurns {
public:
    // From now on `goOn` is called every few milliseconds while a statement of `database` runs. When it
    // returns false the statement fails with a StoreError and leaves nothing. It must not throw or use
    // `database`.
    StatementTurns(Database& database, std::function<bool()> goOn);
    ~StatementTurns();
    StatementTurns(const StatementTurns&) = delete;
    StatementTurns& operator=(const StatementTurns&) = delete;

private:
    static int Turn(void* turns);

    std::shared_ptr<Connection> connection_;
    std::function<bool()> goOn_;
};

}  // namespace quillon::store
