#include "validation/keyed_walk.h"

#include <utility>

namespace quillon::validation {

KeyedWalk::KeyedWalk(store::Database& database, std::string_view table,
                     const std::vector<std::string_view>& columns, const store::TableRows& rows, Turns turns)
    : rows_(database, table, columns, rows), turns_(turns) {
    Advance();
}

KeyedWalk::KeyedWalk(store::Database& database, std::string_view select, Turns turns)
    : rows_(database, select), turns_(turns) {
    Advance();
}

void KeyedWalk::Advance() {
    ended_ = !rows_.Next();
    if (!ended_) key_ = rows_.Long(0);
}

bool KeyedWalk::MoveTo(std::int64_t key) {
    while (!ended_ && !stopped_ && key_ < key) {
        stopped_ = !turns_.Next();
        if (!stopped_) Advance();
    }
    return !ended_ && !stopped_ && key_ == key;
}

bool KeyedWalk::MoveNext() {
    const std::int64_t key = key_;
    Advance();
    return !ended_ && key_ == key;
}

}  // namespace quillon::validation
