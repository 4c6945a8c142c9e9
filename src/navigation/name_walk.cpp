// Walks the index on the names. It begins at any name with a few selects over ranges of the index.
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
constexpr std::string_view kKeySql =
    "PARAMETERS theId Long; SELECT t.unit_name1, t.unit_name2, t.unit_name3, t.unit_name4, a.taxon_author "
    "FROM qb_taxonomic_units AS t LEFT JOIN qb_taxon_authors_lookup AS a "
    "ON t.qb_taxon_author_id = a.qb_taxon_author_id WHERE t.qb_id = [theId]";

using Units = NameWalk::Units;

std::string UnitName(std::size_t i) {
    return fmt::format("unit_name{}", i + 1);
}

std::string Equals(const Units& from, std::size_t i) {
    if (from[i].empty()) return UnitName(i) + " Is Null";
    return fmt::format("{} = \"{}\"", UnitName(i), QuoteDoubleQuotes(from[i]));
}

// The beginning of a condition: the first `i` units are those of `from`.
std::string Shares(const Units& from, std::size_t i) {
    std::string where;
    for (std::size_t unit = 0; unit < i; ++unit) where += Equals(from, unit) + " AND ";
    return where;
}

// Names that share their first units with `from` and differ in the next one are adjacent in the index, before
// those that share one unit less.
std::vector<std::string> Conditions(NameWalk::Direction direction, const Units& from) {
    std::vector<std::string> conditions;
    for (std::size_t i = 4; i-- > 0;) {
        const std::string shared = Shares(from, i), name = UnitName(i);
        const std::string text = QuoteDoubleQuotes(from[i]);
        if (direction == NameWalk::Direction::Forward) {
            conditions.push_back(from[i].empty() ? shared + name + " Is Not Null"
                                                 : fmt::format("{}{} > \"{}\"", shared, name, text));
        } else if (!from[i].empty()) {
            conditions.push_back(fmt::format("{}{} < \"{}\"", shared, name, text));
            conditions.push_back(shared + name + " Is Null");
        }
    }
    return conditions;
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

NameWalk::NameWalk(store::Database& database, Direction direction, const Units* from, Begin begin)
    : database_(database), direction_(direction) {
    const std::string_view sql = direction == Direction::Forward ? kForwardSql : kBackwardSql;
    if (from == nullptr) {
        selects_.push_back(fmt::format(fmt::runtime(sql), ""));
    } else {
        auto conditions = Conditions(direction, *from);
        if (begin == Begin::With) conditions.insert(conditions.begin(), Shares(*from, 3) + Equals(*from, 3));
        for (auto where = conditions.rbegin(); where != conditions.rend(); ++where)
            selects_.push_back(fmt::format(fmt::runtime(sql), "WHERE " + *where));
    }
    Step();
}

bool NameWalk::Step() {
    hasRow_ = rows_ && rows_->Next();
    while (!hasRow_ && !selects_.empty()) {
        rows_.emplace(database_, selects_.back());
        selects_.pop_back();
        hasRow_ = rows_->Next();
    }
    return hasRow_;
}

bool NameWalk::HasName(const Units& name) const {
    // The later units differ more often from one row to the next.
    for (std::size_t i = 4; i-- > 0;) {
        if (!EqualText(rows_->Text(i + 1), name[i])) return false;
    }
    return true;
}

bool NameWalk::Next(std::vector<std::int32_t>& qb_ids) {
    qb_ids.clear();
    if (!hasRow_) return false;
    for (std::size_t i = 0; i < 4; ++i) name_[i] = rows_->Text(i + 1);
    do {
        qb_ids.push_back(static_cast<std::int32_t>(rows_->Long(0)));
    } while (Step() && HasName(name_));
    if (qb_ids.size() > 1) OrderByAuthor(qb_ids);
    return true;
}

// Names without an author come first.
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
