#include "navigation/list_order.h"

#include <algorithm>

#include "core/text.h"

namespace quillon::navigation {

using store::RecordsetType;

namespace {

constexpr std::size_t kRowsBetweenLooksAtTheClock = 128;
constexpr int kIdsAtOnce = 50000;

constexpr std::string_view kRowsSql =
    "SELECT qb_id, unit_name1, unit_name2, unit_name3, unit_name4 FROM qb_taxonomic_units "
    "ORDER BY unit_name1, unit_name2, unit_name3, unit_name4";
constexpr std::string_view kAuthorSql =
    "PARAMETERS theId Long; SELECT a.taxon_author FROM qb_taxonomic_units AS t INNER JOIN "
    "qb_taxon_authors_lookup AS a "
    "ON t.qb_taxon_author_id = a.qb_taxon_author_id WHERE t.qb_id = [theId]";
constexpr std::string_view kMarksSql =
    "PARAMETERS theFirst Long, theLast Long; SELECT qb_id, unit_ind1 FROM qb_taxonomic_units "
    "WHERE qb_id >= [theFirst] AND qb_id <= [theLast] AND unit_ind1 Is Not Null";

}  // namespace

bool ListOrder::Units::operator==(const Units& other) const {
    return std::equal(std::begin(name), std::end(name), std::begin(other.name), EqualText);
}

ListOrder::ListOrder(std::shared_ptr<store::Database> database, bool withMarks)
    : database_(std::move(database)), rows_(database_->OpenRecordset(kRowsSql, RecordsetType::ForwardOnly)) {
    if (withMarks) nextMark_ = 1;
}

bool ListOrder::Read(std::chrono::microseconds slice) {
    const auto deadline = std::chrono::steady_clock::now() + slice;
    do {
        for (std::size_t i = 0; rows_ && i < kRowsBetweenLooksAtTheClock; ++i) ReadRow();
        if (!rows_ && nextMark_) ReadMarks();
    } while (!IsComplete() && std::chrono::steady_clock::now() < deadline);
    return IsComplete();
}

void ListOrder::ReadRow() {
    if (rows_->Eof()) {
        EndRun();
        rows_.reset();
        return;
    }
    const auto id = static_cast<std::int32_t>(rows_->At(0).AsLong());
    Units units;
    for (std::size_t i = 0; i < 4; ++i) units.name[i] = rows_->At(i + 1).AsText();
    if (!(units == last_)) {
        EndRun();
        last_ = std::move(units);
    }
    run_.push_back(id);
    lastId_ = std::max(lastId_, static_cast<int>(id));
    rows_->MoveNext();
}

// Rows of one name stand by their authors, those without one first.
void ListOrder::EndRun() {
    if (run_.size() > 1) {
        std::vector<std::pair<std::string, std::int32_t>> byAuthor;
        for (const std::int32_t id : run_) byAuthor.emplace_back(AuthorKey(id), id);
        std::sort(byAuthor.begin(), byAuthor.end());
        std::transform(byAuthor.begin(), byAuthor.end(), run_.begin(),
                       [](const auto& row) { return row.second; });
    }
    ids_.insert(ids_.end(), run_.begin(), run_.end());
    run_.clear();
}

std::string ListOrder::AuthorKey(std::int32_t qb_id) {
    if (!authorQuery_) authorQuery_ = database_->CreateQueryDef("", kAuthorSql);
    const auto author = authorQuery_->Set("theId", qb_id).OpenRecordset(RecordsetType::ForwardOnly);
    return author->Eof() || author->At(0).IsNull() ? std::string() : SortKey(author->At(0).Text());
}

void ListOrder::ReadMarks() {
    auto query = database_->CreateQueryDef("", kMarksSql);
    query.Set("theFirst", *nextMark_).Set("theLast", *nextMark_ + kIdsAtOnce - 1);
    for (const auto row = query.OpenRecordset(RecordsetType::ForwardOnly); !row->Eof(); row->MoveNext()) {
        marks_[static_cast<std::int32_t>(row->At(0).AsLong())] = row->At(1).AsText();
    }
    *nextMark_ += kIdsAtOnce;
    if (*nextMark_ <= lastId_) return;
    nextMark_.reset();
    PlaceMarks();
}

void ListOrder::PlaceMarks() {
    if (marks_.empty()) return;
    for (std::size_t row = 0; row < ids_.size(); ++row) {
        const auto mark = marks_.find(ids_[row]);
        if (mark != marks_.end()) marked_[mark->second].push_back(row);
    }
    marks_.clear();
}

}  // namespace quillon::navigation
