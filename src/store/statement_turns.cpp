#include "store/statement_turns.h"

#include <utility>

#include "store/engine/connection.h"

namespace quillon::store {

StatementTurns::StatementTurns(Database& database, std::function<bool()> goOn)
    : connection_(database.Shared()), turns_(connection_->Native(), std::move(goOn)) {}

}  // namespace quillon::store
