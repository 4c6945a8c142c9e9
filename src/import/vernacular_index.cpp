#include "import/vernacular_index.h"

#include <algorithm>
#include <limits>

#include "import/seeded_hash.h"
#include "store/row_stream.h"

namespace quillon::importing {

namespace {

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();

}  // namespace

std::uint64_t VernacularIndex::HashOf(std::string_view name) {
    return SeededHash(name);
}

void VernacularIndex::Forget(const VernacularRow& row) {
    if (!built_ || row.stored != Stored::Own) return;
    byName_.erase({row.qb_id, row.name, row.newId, row.vern_id});
    byVernId_.erase({row.vern_id, row.newId});
}

void VernacularIndex::Note(const VernacularRow& row) {
    if (!built_ || row.stored != Stored::Own) return;
    byName_.insert({row.qb_id, row.name, row.newId, row.vern_id});
    if (row.vern_id != 0) byVernId_.insert({row.vern_id, row.newId});
}

void VernacularIndex::Build() {
    if (built_) return;
    built_ = true;
    // AutoNumbers increase: rows that existed before have ids below the first row of this import.
    const std::int32_t first = rows_.Empty() ? std::numeric_limits<std::int32_t>::max() : rows_[0].newId;
    store::RowStream rows(database_, "qb_vernaculars", {"vern_id", "qb_vern_id"});
    while (rows.Next()) {
        TakeTurn(turns_);
        if (rows.IsNull(0) || rows.Long(1) >= first) continue;
        before_.emplace_back(static_cast<std::int32_t>(rows.Long(0)),
                             static_cast<std::int32_t>(rows.Long(1)));
    }
    std::sort(before_.begin(), before_.end());
    for (const VernacularRow& row : rows_) {
        TakeTurn(turns_);
        Note(row);
    }
}

std::optional<std::int32_t> VernacularIndex::FindVernId(std::int32_t qb_id, std::string_view name) {
    Build();
    const std::uint64_t hash = HashOf(name);
    const auto found = byName_.lower_bound({qb_id, hash, kLowest, kLowest});
    if (found == byName_.end() || std::get<0>(*found) != qb_id || std::get<1>(*found) != hash)
        return std::nullopt;
    return std::get<3>(*found);
}

std::optional<std::int32_t> VernacularIndex::FindQbVernId(std::int32_t vern_id) {
    Build();
    const std::pair<std::int32_t, std::int32_t> first{vern_id, kLowest};
    const auto before = std::lower_bound(before_.begin(), before_.end(), first);
    if (before != before_.end() && before->first == vern_id) return before->second;
    const auto found = byVernId_.lower_bound(first);
    if (found == byVernId_.end() || found->first != vern_id) return std::nullopt;
    return found->second;
}

}  // namespace quillon::importing
