#include "navigation/taxon_list.h"

#include <fmt/format.h>

#include <algorithm>

namespace quillon::navigation {

using store::RecordsetType;

namespace {

constexpr std::size_t kCachedLines = 1000;
// Rows shown on each side of a taxon that is not loaded yet.
constexpr std::size_t kRowsBeside = 200;
constexpr std::string_view kLineSql = "PARAMETERS theId Long; SELECT line FROM [{}] WHERE qb_id = [theId]";

}  // namespace

void TaxonList::Open(std::shared_ptr<store::Database> database, std::string_view query) {
    if (observer_ != nullptr) observer_->BeforeReset();
    database_ = std::move(database);
    query_ = query;
    ForgetAll();
    order_ = database_ ? std::make_unique<ListOrder>(database_) : nullptr;
    if (observer_ != nullptr) observer_->AfterReset();
}

void TaxonList::ForgetAll() {
    order_.reset();
    search_.reset();
    found_.reset();
    around_.clear();
    stopped_ = false;
    lineQuery_.reset();
    recent_.clear();
    cache_.clear();
}

void TaxonList::Reattach(std::shared_ptr<store::Database> database) {
    if (!IsComplete() || !order_) return Open(std::move(database), std::string(query_));
    database_ = std::move(database);
    order_->Reattach(database_);
    search_.reset();
    lineQuery_.reset();
}

bool TaxonList::Load(std::chrono::microseconds slice) {
    if (IsComplete()) return true;
    const std::size_t before = order_->Ids().size();
    try {
        order_->Read(slice);
    } catch (const store::StoreError&) {
        stopped_ = true;
    }
    if (IsComplete() && !around_.empty()) {
        ShowInstead({});
    } else if (observer_ != nullptr && around_.empty() && order_->Ids().size() > before) {
        observer_->RowsAdded();
    }
    return IsComplete();
}

void TaxonList::ShowInstead(std::vector<std::int32_t> around) {
    if (observer_ != nullptr) observer_->BeforeReset();
    around_ = std::move(around);
    if (observer_ != nullptr) observer_->AfterReset();
}

std::size_t TaxonList::RowOf(int qb_id) const {
    if (!order_) return kNone;
    const auto found = std::find(Shown().begin(), Shown().end(), qb_id);
    return found == Shown().end() ? kNone : static_cast<std::size_t>(found - Shown().begin());
}

void TaxonList::ShowAround(int qb_id) {
    if (IsComplete() || RowOf(qb_id) != kNone) return;
    std::vector<std::int32_t> ids;
    try {
        const auto key = KeyOf(*database_, qb_id);
        if (!key) return;
        AddBeside(*key, NameWalk::Direction::Backward, ids);
        std::reverse(ids.begin(), ids.end());
        // The name itself follows those before it.
        NameWalk::Units before = key->units;
        if (!ids.empty()) before = KeyOf(*database_, ids.back()).value_or(*key).units;
        NameWalk walk(*database_, NameWalk::Direction::Forward, ids.empty() ? nullptr : &before);
        std::vector<std::int32_t> sameName;
        for (const std::size_t enough = ids.size() + kRowsBeside; ids.size() < enough && walk.Next(sameName);)
            ids.insert(ids.end(), sameName.begin(), sameName.end());
    } catch (const store::StoreError&) {
        return;
    }
    ShowInstead(std::move(ids));
}

void TaxonList::AddBeside(const NameKey& key, NameWalk::Direction direction, std::vector<std::int32_t>& ids) {
    NameWalk walk(*database_, direction, &key.units);
    std::vector<std::int32_t> sameName;
    while (ids.size() < kRowsBeside && walk.Next(sameName))
        ids.insert(ids.end(), sameName.begin(), sameName.end());
}

const std::string& TaxonList::Line(std::size_t row) {
    const int qb_id = IdAt(row);
    if (const auto found = cache_.find(qb_id); found != cache_.end()) {
        recent_.splice(recent_.begin(), recent_, found->second);
        return recent_.front().second;
    }
    std::string line;
    try {
        if (!lineQuery_)
            lineQuery_ = database_->CreateQueryDef("", fmt::format(fmt::runtime(kLineSql), query_));
        const auto found = lineQuery_->Set("theId", qb_id).OpenRecordset(RecordsetType::ForwardOnly);
        if (!found->Eof()) line = found->At(0).AsText();
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

void TaxonList::ForgetLines() {
    recent_.clear();
    cache_.clear();
    if (observer_ != nullptr) observer_->LinesChanged();
}

}  // namespace quillon::navigation
