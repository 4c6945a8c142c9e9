#include "validation/keyed_walk.h"

namespace quillon::validation {

KeyedWalk::KeyedWalk(store::Database& database, std::string_view select)
    : rows_(database.OpenRecordset(select, store::RecordsetType::ForwardOnly)) {
    ended_ = rows_->Eof();
    if (!ended_) key_ = rows_->At(0).AsLong();
}

bool KeyedWalk::Advance() {
    rows_->MoveNext();
    ended_ = rows_->Eof();
    if (ended_) return false;
    key_ = rows_->At(0).AsLong();
    return true;
}

bool KeyedWalk::MoveTo(std::int64_t key) {
    while (!ended_ && key_ < key) Advance();
    return !ended_ && key_ == key;
}

bool KeyedWalk::MoveNext() {
    const std::int64_t key = key_;
    return Advance() && key_ == key;
}

}  // namespace quillon::validation
