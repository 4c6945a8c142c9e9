#include "store/statement_turns.h"

#include <sqlite3.h>

#include <utility>

#include "store/engine/connection.h"

namespace quillon::store {

namespace {

// Instructions of SQLite's machine between two turns: about a millisecond.
constexpr int kInstructions = 10'000;

}  // namespace

StatementTurns::StatementTurns(Database& database, std::function<bool()> goOn)
    : connection_(database.Shared()), goOn_(std::move(goOn)) {
    sqlite3_progress_handler(connection_->Native(), kInstructions, Turn, this);
}

StatementTurns::~StatementTurns() {
    sqlite3_progress_handler(connection_->Native(), 0, nullptr, nullptr);
}

int StatementTurns::Turn(void* turns) {
    return static_cast<StatementTurns*>(turns)->goOn_() ? 0 : 1;
}

}  // namespace quillon::store
