#include "navigation/taxon_list.h"

#include <fmt/format.h>

#include <algorithm>

namespace quillon::navigation {

using store::RecordsetType;

namespace {

constexpr std::size_t kCachedLines = 1000;
constexpr std::string_view kLineSql = "PARAMETERS theId Long; SELECT line FROM [{}] WHERE qb_id = [theId]";

}  // namespace

void TaxonList::Open(std::shared_ptr<store::Database> database, std::string_view query) {
    database_ = std::move(database);
    query_ = query;
    order_.reset();
    stopped_ = false;
    lineQuery_.reset();
    unitsQuery_.reset();
    recent_.clear();
    cache_.clear();
    try {
        if (database_) order_ = std::make_unique<ListOrder>(database_, query_ == kMarkedQuery);
    } catch (const store::StoreError&) {
        database_.reset();
    }
    if (observer_) observer_();
}

void TaxonList::Reattach(std::shared_ptr<store::Database> database) {
    if (!IsComplete()) return Open(std::move(database), std::string(query_));
    database_ = std::move(database);
    lineQuery_.reset();
    unitsQuery_.reset();
}

bool TaxonList::Load(std::chrono::microseconds slice) {
    if (IsComplete()) return true;
    const std::size_t before = RowCount();
    try {
        order_->Read(slice);
    } catch (const store::StoreError&) {
        stopped_ = true;
    }
    if (observer_ && RowCount() > before) observer_();
    return IsComplete();
}

const std::string& TaxonList::Line(std::size_t row) {
    return LineOf(IdAt(row));
}

std::size_t TaxonList::RowOf(int qb_id) const {
    if (!order_) return kNone;
    const auto& ids = order_->Ids();
    const auto found = std::find(ids.begin(), ids.end(), qb_id);
    return found == ids.end() ? kNone : static_cast<std::size_t>(found - ids.begin());
}

const std::string& TaxonList::LineOf(int qb_id) {
    if (const auto found = cache_.find(qb_id); found != cache_.end()) {
        recent_.splice(recent_.begin(), recent_, found->second);
        return recent_.front().second;
    }
    std::string line;
    try {
        if (!lineQuery_)
            lineQuery_ = database_->CreateQueryDef("", fmt::format(fmt::runtime(kLineSql), query_));
        const auto row = lineQuery_->Set("theId", qb_id).OpenRecordset(RecordsetType::ForwardOnly);
        if (!row->Eof()) line = row->At(0).AsText();
    } catch (const store::StoreError&) {
    }
    recent_.emplace_front(qb_id, std::move(line));
    cache_[qb_id] = recent_.begin();
    if (recent_.size() > kCachedLines) {
        cache_.erase(recent_.back().first);
        recent_.pop_back();
    }
    return recent_.front().second;
}

}  // namespace quillon::navigation
