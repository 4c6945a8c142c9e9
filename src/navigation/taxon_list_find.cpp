// Look-ups of single taxa: the typed search, the steps from row to row, and the row of a taxon that has been
// written.
#include <algorithm>

#include "navigation/taxon_list.h"
#include "navigation/typed_search.h"

namespace quillon::navigation {

namespace {

constexpr std::size_t kAllRows = static_cast<std::size_t>(-1);

}  // namespace

int TaxonList::FirstId() {
    if (!order_) return 0;
    if (!order_->Ids().empty()) return order_->Ids().front();
    return EndOf(NameWalk::Direction::Forward);
}

int TaxonList::LastId() {
    if (!order_) return 0;
    if (IsComplete()) return order_->Ids().empty() ? 0 : order_->Ids().back();
    return EndOf(NameWalk::Direction::Backward);
}

int TaxonList::EndOf(NameWalk::Direction direction) const {
    try {
        std::vector<std::int32_t> ids;
        NameWalk(*database_, direction).Next(ids);
        return ids.empty() ? 0 : ids.front();
    } catch (const store::StoreError&) {
        return 0;
    }
}

int TaxonList::NextId(int qb_id) {
    return Neighbour(qb_id, 1);
}

int TaxonList::PreviousId(int qb_id) {
    return Neighbour(qb_id, -1);
}

// At the end of the visible rows, shows those around the taxon; if there is still no neighbour, loads all
// rows.
int TaxonList::Neighbour(int qb_id, int step) {
    for (int attempt = 0; attempt < 3; ++attempt) {
        const std::size_t row = RowOf(qb_id);
        // Before the first row this wraps to a place after the last one.
        const std::size_t next = row + static_cast<std::size_t>(step);
        if (row != kNone && next < RowCount()) return IdAt(next);
        if (IsComplete()) return 0;
        if (attempt > 0 || row != kNone) {
            LoadAll();
        } else {
            ShowAround(qb_id);
        }
    }
    return 0;
}

// The key of a taxon, or of the next row for a deleted taxon.
std::optional<NameKey> TaxonList::KeyFrom(int qb_id) {
    for (std::size_t row = RowOf(qb_id); row < RowCount(); ++row) {
        if (auto key = KeyOf(*database_, IdAt(row))) return key;
    }
    return KeyOf(*database_, qb_id);
}

void TaxonList::BeginSearch(std::string_view typed, Among among, int qb_id) {
    search_.reset();
    found_.reset();
    if (!order_) return;
    try {
        Search(typed, among, qb_id);
    } catch (const store::StoreError&) {
        search_.reset();
    }
}

void TaxonList::Search(std::string_view typed, Among among, int qb_id) {
    std::optional<NameKey> key;
    if (among != Among::All && !(key = KeyFrom(qb_id))) return;
    const NameKey* from = among == Among::From ? &*key : nullptr;
    const NameKey* before = among == Among::Before ? &*key : nullptr;
    if (PatternSearch::IsNeededFor(typed)) {
        search_ = std::make_unique<PatternSearch>(database_, query_, typed, from, before);
        return;
    }
    const auto found = TypedSearch(*database_, query_, typed, from).Run();
    if (found && (before == nullptr || CompareKeys(*found, *before) < 0)) found_ = found->qb_id;
}

bool TaxonList::SearchOn(std::size_t rows) {
    if (!search_) return true;
    try {
        if (!search_->Step(rows)) return false;
        found_ = search_->Found();
    } catch (const store::StoreError&) {
    }
    search_.reset();
    return true;
}

std::optional<int> TaxonList::RunSearch(std::string_view typed, Among among, int qb_id) {
    BeginSearch(typed, among, qb_id);
    while (!SearchOn(kAllRows)) continue;
    return found_;
}

void TaxonList::RemoveRow(std::size_t row) {
    if (observer_ != nullptr) observer_->BeforeRemove(row);
    order_->Erase(row);
    if (observer_ != nullptr) observer_->AfterRemove();
}

// A list that is still being read starts over, which is cheap.
void TaxonList::Update(int qb_id) {
    if (!order_ || stopped_) return;
    if (!IsComplete()) return Open(database_, std::string(query_));
    if (const auto cached = cache_.find(qb_id); cached != cache_.end()) {
        recent_.erase(cached->second);
        cache_.erase(cached);
    }
    if (const std::size_t row = RowOf(qb_id); row != kNone) RemoveRow(row);
    try {
        const auto key = KeyOf(*database_, qb_id);
        if (!key) return;
        const std::size_t row = order_->PlaceOf(*key);
        if (observer_ != nullptr) observer_->BeforeInsert(row);
        order_->Insert(row, qb_id);
        if (observer_ != nullptr) observer_->AfterInsert();
    } catch (const store::StoreError&) {
        // The next opening of the list adds the row again.
    }
}

}  // namespace quillon::navigation
