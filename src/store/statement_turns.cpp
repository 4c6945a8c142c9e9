#include "store/statement_turns.h"

#include <utility>

#include "store/engine/connection.h"

namespace quillon::store {

StatementTurns::StatementTurns(Database& database, std::function<bool()> goOn, int instructions)
    : connection_(database.Shared()),
      outer_(connection_->currentTurns),
      turns_(connection_->Native(), std::move(goOn), instructions, outer_) {
    connection_->currentTurns = &turns_;
}

StatementTurns::~StatementTurns() {
    connection_->currentTurns = outer_;
}

}  // namespace quillon::store
