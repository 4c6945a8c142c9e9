// Reads in two passes, because no index has the order of the tree: first the keys by the index on the
// parents, then the items in order.
#include "navigation/child_reader.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <tuple>
#include <utility>

#include "core/text.h"
#include "navigation/bio_list_connection.h"
#include "navigation/bio_list_sql.h"
#include "navigation/many_ids.h"

namespace quillon::navigation {

using store::Recordset;

namespace {

constexpr std::int64_t kNullFirst = std::numeric_limits<std::int64_t>::min();

std::int64_t NumberOf(const Value& value) {
    return value.IsNull() ? kNullFirst : value.AsLong();
}

// Four units as one byte string that sorts like the units: a sort key never contains two zero bytes in a row.
std::string NameOf(const Recordset& row, std::size_t first) {
    std::string name;
    for (std::size_t i = 0; i < 4; ++i) {
        name += SortKey(row.At(first + i).AsText());
        name.append(2, '\0');
    }
    return name;
}

void AddCounts(store::Database& database, std::string_view sql, std::span<const std::int32_t> ids,
               std::unordered_map<std::int32_t, std::int64_t>& counts) {
    ManyIds query(database, sql);
    for (const auto row = query.Open(ids); !row->Eof(); row->MoveNext())
        counts[static_cast<std::int32_t>(row->At(0).AsLong())] += row->At(1).AsLong();
}

}  // namespace

bool ChildReader::Key::operator>(const Key& other) const {
    return std::tie(rank, sequence, name, qb_id) >
           std::tie(other.rank, other.sequence, other.name, other.qb_id);
}

ChildReader::ChildReader(cBioList& parent, Level level) : parent_(parent), lastKey_(kFirstKey) {
    if (level == Level::Top) {
        const auto& database = parent.source_->state.gDatabase;
        if (database && database->IsOpen()) parts_ = {Kind::Orphan};
    } else {
        parts_ = {Kind::Synonym, Kind::Child};
    }
}

bool ChildReader::Step(std::size_t rows, cBioList::Collection& items) {
    const cBioList::Connection connection(*parent_.source_, parent_.dbname());
    if (!connection) parts_.clear();
    while (!parts_.empty() && rows > 0) {
        try {
            const std::size_t read = StepPart(*connection, rows, items);
            rowsRead_ += read;
            rows -= std::min(rows, read);
        } catch (const store::StoreError&) {
            NextPart();
        }
    }
    return !parts_.empty();
}

std::size_t ChildReader::StepPart(store::Database& database, std::size_t rows, cBioList::Collection& items) {
    if (!keysComplete_) return ReadKeys(database, rows);
    if (!keys_.empty()) return ReadItems(database, rows, items);
    NextPart();
    return 0;
}

void ChildReader::NextPart() {
    parts_.pop_back();
    keysComplete_ = false;
    keys_ = {};
    lastKey_ = kFirstKey;
}

std::size_t ChildReader::ReadKeys(store::Database& database, std::size_t rows) {
    const Kind kind = parts_.back();
    if (kind == Kind::Orphan && lastKey_ == kFirstKey) {
        for (const auto row = database.OpenRecordset(kKingdomNamesSql); !row->Eof(); row->MoveNext())
            kingdoms_.push_back(row->At(0).AsText());
    }
    auto query = database.CreateQueryDef("", kind == Kind::Child     ? kChildKeysSql
                                             : kind == Kind::Synonym ? kSynonymKeysSql
                                                                     : kOrphanKeysSql);
    query.Set("theLast", lastKey_);
    if (kind != Kind::Orphan) query.Set("theId", parent_.qb_id());
    const auto row = query.OpenRecordset(store::RecordsetType::ForwardOnly);
    std::size_t read = 0;
    std::optional<Key> held;  // wanted unless another row of its taxon says otherwise
    const auto release = [&] {
        if (held) keys_.push(*std::exchange(held, std::nullopt));
    };
    for (; !row->Eof(); ++read, row->MoveNext()) {
        const bool isSame = read > 0 && row->At(0).AsLong() == lastKey_;
        if (!isSame && read >= rows) break;
        lastKey_ = row->At(0).AsLong();
        if (!isSame) release();
        if (!IsWanted(*row)) {
            held.reset();
        } else if (!isSame) {
            const bool byRank = kind == Kind::Child;
            held = Key{byRank ? NumberOf(row->At(1)) : 0, byRank ? NumberOf(row->At(2)) : 0, NameOf(*row, 3),
                       static_cast<std::int32_t>(lastKey_)};
        }
    }
    release();
    if (row->Eof()) EndKeys(database);
    return read;
}

// A taxon without a parent is not an orphan when it is a synonym of a name that is there, has no first unit,
// or has the name of a kingdom.
bool ChildReader::IsWanted(const Recordset& row) const {
    if (parts_.back() != Kind::Orphan) return true;
    const std::string name = row.At(3).AsText();
    return row.At(7).IsNull() && !name.empty() &&
           std::none_of(kingdoms_.begin(), kingdoms_.end(),
                        [&](const std::string& kingdom) { return EqualText(kingdom, name); });
}

void ChildReader::EndKeys(store::Database& database) {
    keysComplete_ = true;
    if (parts_.back() == Kind::Child && !keys_.empty())
        parent_.numChildren_ = cBioList::CountChildren(database, parent_.qb_id());
}

std::size_t ChildReader::ReadItems(store::Database& database, std::size_t rows, cBioList::Collection& items) {
    ManyIds names(database, kNamesSql);
    std::size_t read = 0;
    while (read < rows && !keys_.empty()) {
        std::vector<std::int32_t> ids;
        for (; ids.size() < std::min(ManyIds::kAtOnce, rows - read) && !keys_.empty(); keys_.pop())
            ids.push_back(keys_.top().qb_id);
        read += ids.size();
        std::unordered_map<std::int32_t, std::shared_ptr<cBioList>> found;
        const bool isPlain = parts_.back() == Kind::Child;
        for (const auto row = names.Open(ids); !row->Eof(); row->MoveNext()) {
            auto item = parent_.NewItem(
                *row, isPlain ? cBioList::CalcPlainNodeName(*row) : cBioList::CalcNodeName(*row));
            found[item->qb_id()] = std::move(item);
        }
        Counts counts;
        AddCounts(database, kChildrenOfManySql, ids, counts);
        AddCounts(database, kSynonymsOfManySql, ids, counts);
        for (const std::int32_t id : ids) {
            const auto item = found.find(id);
            if (item == found.end()) continue;
            Finish(*item->second, counts);
            items.push_back(std::move(item->second));
        }
    }
    return read;
}

void ChildReader::Finish(cBioList& item, const Counts& counts) const {
    const Kind kind = parts_.back();
    if (kind == Kind::Synonym) item.accepted_ = parent_.qb_id();
    item.isSyn_ = kind == Kind::Synonym || (kind == Kind::Orphan && cBioList::UsageIsInvalid(item.usage_));
    const auto found = counts.find(item.qb_id_);
    item.numChildren_ = found == counts.end() ? 0 : found->second;
    item.numDescendants_ = item.CountDescendants();
}

}  // namespace quillon::navigation
