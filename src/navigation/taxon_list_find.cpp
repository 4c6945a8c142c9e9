// Where the list is asked for a taxon: the typed search, the steps from row to row, and the row of a taxon
// that has been written.
#include <algorithm>

#include "navigation/taxon_list.h"
#include "navigation/typed_search.h"

namespace quillon::navigation {

int TaxonList::FirstId() {
    const auto first = Find({});
    return first ? *first : 0;
}

int TaxonList::LastId() {
    if (!order_) return 0;
    if (IsComplete()) return order_->Ids().empty() ? 0 : order_->Ids().back();
    try {
        std::vector<std::int32_t> last;
        NameWalk(*database_, NameWalk::Direction::Backward).Next(last);
        return last.empty() ? 0 : last.front();
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

// Where the rows on show end before the list does, those around the taxon are shown; where they still do, all
// have to be there.
int TaxonList::Neighbour(int qb_id, int step) {
    for (int attempt = 0; attempt < 3; ++attempt) {
        const std::size_t row = RowOf(qb_id);
        // Before the first row this is a place behind the last one.
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

// The key of a taxon; of one that is gone that of the next row.
std::optional<NameKey> TaxonList::KeyFrom(int qb_id) {
    for (std::size_t row = RowOf(qb_id); row < RowCount(); ++row) {
        if (auto key = KeyOf(*database_, IdAt(row))) return key;
    }
    return KeyOf(*database_, qb_id);
}

std::optional<NameKey> TaxonList::Search(std::string_view typed, const NameKey* from) {
    return TypedSearch(*database_, query_, typed, from).Run();
}

std::optional<int> TaxonList::Find(std::string_view typed) {
    if (!order_) return std::nullopt;
    try {
        const auto found = Search(typed, nullptr);
        return found ? std::optional(found->qb_id) : std::nullopt;
    } catch (const store::StoreError&) {
        return std::nullopt;
    }
}

std::optional<int> TaxonList::FindFrom(std::string_view typed, int qb_id) {
    if (!order_) return std::nullopt;
    try {
        const auto from = KeyFrom(qb_id);
        const auto found = from ? Search(typed, &*from) : std::nullopt;
        return found ? std::optional(found->qb_id) : std::nullopt;
    } catch (const store::StoreError&) {
        return std::nullopt;
    }
}

std::optional<int> TaxonList::FindBefore(std::string_view typed, int qb_id) {
    if (!order_) return std::nullopt;
    try {
        const auto before = KeyFrom(qb_id);
        const auto found = Search(typed, nullptr);
        if (!before || !found || CompareKeys(*found, *before) >= 0) return std::nullopt;
        return found->qb_id;
    } catch (const store::StoreError&) {
        return std::nullopt;
    }
}

void TaxonList::RemoveRow(std::size_t row) {
    if (observer_ != nullptr) observer_->BeforeRemove(row);
    order_->Erase(row);
    if (observer_ != nullptr) observer_->AfterRemove();
}

// A list that is still being read begins anew, which takes no time.
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
        // The row comes back with the next opening.
    }
}

}  // namespace quillon::navigation
