// Turns within a long statement, so that a job can report progress and be canceled while SQLite runs one
// statement over a whole table. Used by the import, counts and quillon-batch.
#pragma once

#include <functional>

#include "store/engine.h"
#include "store/engine/native.h"

namespace quillon::store {

class StatementTurns {
public:
    // Calls `goOn` every few milliseconds while a statement of `database` runs. When it returns false the
    // statement fails with a StoreError and stores nothing. It must not throw or use `database`, which must
    // be open at the end. Scopes may nest; only the innermost is called.
    StatementTurns(Database& database, std::function<bool()> goOn,
                   int instructions = NativeTurns::kInstructions);
    ~StatementTurns();
    StatementTurns(const StatementTurns&) = delete;
    StatementTurns& operator=(const StatementTurns&) = delete;

private:
    std::shared_ptr<Connection> connection_;
    NativeTurns* outer_;
    NativeTurns turns_;
};

}  // namespace quillon::store
