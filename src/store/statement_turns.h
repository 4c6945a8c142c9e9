// Turns within a long statement: lets a job report progress and notice a Cancel while SQLite runs one
// statement over a whole table. The closing pass of an import uses it; loops over rows take their own turns.
#pragma once

#include <functional>

#include "store/engine.h"
#include "store/engine/native.h"

namespace quillon::store {

class StatementTurns {
public:
    // From now on `goOn` is called every few milliseconds while a statement of `database` runs. When it
    // returns false the statement fails with a StoreError and leaves nothing. It must not throw or use
    // `database`, which must be open at the end.
    StatementTurns(Database& database, std::function<bool()> goOn);

private:
    std::shared_ptr<Connection> connection_;
    NativeTurns turns_;
};

}  // namespace quillon::store
