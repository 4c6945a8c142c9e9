#include "navigation/taxon_list.h"

#include <fmt/format.h>

#include <algorithm>

namespace quillon::navigation {

using store::RecordsetType;
using Clock = std::chrono::steady_clock;

namespace {

constexpr std::size_t kCachedLines = 1000;
constexpr std::size_t kRowsBetweenLooksAtTheClock = 128;

// The order of the named queries, with the qb_id to settle it; only what the list keeps is read.
constexpr std::string_view kOrderSql =
    "SELECT t.qb_id, t.unit_ind1 FROM qb_taxonomic_units AS t LEFT JOIN qb_taxon_authors_lookup AS a "
    "ON t.qb_taxon_author_id = a.qb_taxon_author_id "
    "ORDER BY t.unit_name1, t.unit_name2, t.unit_name3, t.unit_name4, a.taxon_author, t.qb_id";
constexpr std::string_view kLineSql = "PARAMETERS theId Long; SELECT line FROM [{}] WHERE qb_id = [theId]";

}  // namespace

void TaxonList::Open(std::shared_ptr<store::Database> database, std::string_view query) {
    database_ = std::move(database);
    query_ = query;
    order_.reset();
    lineQuery_.reset();
    firstUnitQuery_.reset();
    ids_.clear();
    marked_.clear();
    recent_.clear();
    cache_.clear();
    try {
        if (database_) order_ = database_->OpenRecordset(kOrderSql, RecordsetType::ForwardOnly);
    } catch (const store::StoreError&) {
        database_.reset();
    }
    if (observer_) observer_();
}

void TaxonList::Reattach(std::shared_ptr<store::Database> database) {
    if (!IsComplete()) return Open(std::move(database), std::string(query_));
    database_ = std::move(database);
    lineQuery_.reset();
    firstUnitQuery_.reset();
}

bool TaxonList::Load(std::chrono::microseconds slice) {
    if (!order_) return true;
    const std::size_t before = ids_.size();
    try {
        Read(slice);
    } catch (const store::StoreError&) {
        order_.reset();  // closed under the list: it keeps what it has
    }
    if (observer_ && ids_.size() > before) observer_();
    return IsComplete();
}

void TaxonList::Read(std::chrono::microseconds slice) {
    const auto deadline = Clock::now() + slice;
    while (!order_->Eof()) {
        for (std::size_t i = 0; i < kRowsBetweenLooksAtTheClock && !order_->Eof(); ++i) TakeRow();
        if (Clock::now() >= deadline) break;
    }
    if (order_->Eof()) order_.reset();
}

void TaxonList::TakeRow() {
    const Value mark = order_->At(1);
    if (!mark.IsNull()) marked_[mark.AsText()].push_back(ids_.size());
    ids_.push_back(static_cast<std::int32_t>(order_->At(0).AsLong()));
    order_->MoveNext();
}

const std::string& TaxonList::Line(std::size_t row) {
    return LineOf(IdAt(row));
}

std::size_t TaxonList::RowOf(int qb_id) const {
    const auto found = std::find(ids_.begin(), ids_.end(), qb_id);
    return found == ids_.end() ? kNone : static_cast<std::size_t>(found - ids_.begin());
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
