#include "navigation/name_walk.h"

#include <fmt/format.h>

#include <algorithm>

#include "core/text.h"

namespace quillon::navigation {

using store::RecordsetType;

namespace {

constexpr std::string_view kForwardSql =
    "SELECT qb_id, unit_name1, unit_name2, unit_name3, unit_name4 FROM qb_taxonomic_units {} "
    "ORDER BY unit_name1, unit_name2, unit_name3, unit_name4";
constexpr std::string_view kBackwardSql =
    "SELECT qb_id, unit_name1, unit_name2, unit_name3, unit_name4 FROM qb_taxonomic_units {} "
    "ORDER BY unit_name1 DESC, unit_name2 DESC, unit_name3 DESC, unit_name4 DESC";
constexpr std::string_view kFromSql = "WHERE unit_name1 >= \"{}\"";
constexpr std::string_view kUpToSql = "WHERE unit_name1 <= \"{}\"";
constexpr std::string_view kKeySql =
    "PARAMETERS theId Long; SELECT t.unit_name1, t.unit_name2, t.unit_name3, t.unit_name4, a.taxon_author "
    "FROM qb_taxonomic_units AS t LEFT JOIN qb_taxon_authors_lookup AS a "
    "ON t.qb_taxon_author_id = a.qb_taxon_author_id WHERE t.qb_id = [theId]";

std::string WalkSql(NameWalk::Direction direction, const NameWalk::Units* from) {
    const bool forward = direction == NameWalk::Direction::Forward;
    std::string where;
    if (from != nullptr && !from->front().empty())
        where = fmt::format(fmt::runtime(forward ? kFromSql : kUpToSql), QuoteDoubleQuotes(from->front()));
    return fmt::format(fmt::runtime(forward ? kForwardSql : kBackwardSql), where);
}

}  // namespace

int CompareUnits(const std::array<std::string, 4>& left, const std::array<std::string, 4>& right) {
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (const int order = CompareText(left[i], right[i])) return order;
    }
    return 0;
}

int CompareKeys(const NameKey& left, const NameKey& right) {
    if (const int order = CompareUnits(left.units, right.units)) return order;
    if (const int order = CompareText(left.author, right.author)) return order;
    return left.qb_id < right.qb_id ? -1 : left.qb_id > right.qb_id ? 1 : 0;
}

std::optional<NameKey> KeyOf(store::Database& database, int qb_id) {
    auto query = database.CreateQueryDef("", kKeySql);
    const auto row = query.Set("theId", qb_id).OpenRecordset(RecordsetType::ForwardOnly);
    if (row->Eof()) return std::nullopt;
    NameKey key;
    for (std::size_t i = 0; i < 4; ++i) key.units[i] = row->At(i).AsText();
    key.author = row->At(4).AsText();
    key.qb_id = qb_id;
    return key;
}

NameWalk::NameWalk(store::Database& database, Direction direction, const Units* from)
    : database_(database), direction_(direction), rows_(database, WalkSql(direction, from)) {
    Step();
    if (from != nullptr) SkipTo(*from);
}

bool NameWalk::Step() {
    hasRow_ = rows_.Next();
    return hasRow_;
}

void NameWalk::SkipTo(const Units& from) {
    const int behind = direction_ == Direction::Forward ? 1 : -1;
    for (Units name; hasRow_; Step()) {
        for (std::size_t i = 0; i < 4; ++i) name[i] = rows_.Text(i + 1);
        if (CompareUnits(name, from) * behind > 0) return;
    }
}

bool NameWalk::HasName(const Units& name) const {
    // The later units differ more often from one row to the next.
    for (std::size_t i = 4; i-- > 0;) {
        if (!EqualText(rows_.Text(i + 1), name[i])) return false;
    }
    return true;
}

bool NameWalk::Next(std::vector<std::int32_t>& qb_ids) {
    qb_ids.clear();
    if (!hasRow_) return false;
    for (std::size_t i = 0; i < 4; ++i) name_[i] = rows_.Text(i + 1);
    do {
        qb_ids.push_back(static_cast<std::int32_t>(rows_.Long(0)));
    } while (Step() && HasName(name_));
    if (qb_ids.size() > 1) OrderByAuthor(qb_ids);
    return true;
}

// Those without an author stand first.
void NameWalk::OrderByAuthor(std::vector<std::int32_t>& qb_ids) {
    std::vector<std::pair<std::string, std::int32_t>> byAuthor;
    for (const std::int32_t qb_id : qb_ids) {
        const auto key = KeyOf(database_, qb_id);
        byAuthor.emplace_back(key ? SortKey(key->author) : std::string(), qb_id);
    }
    std::sort(byAuthor.begin(), byAuthor.end());
    if (direction_ == Direction::Backward) std::reverse(byAuthor.begin(), byAuthor.end());
    std::transform(byAuthor.begin(), byAuthor.end(), qb_ids.begin(),
                   [](const auto& row) { return row.second; });
}

}  // namespace quillon::navigation
