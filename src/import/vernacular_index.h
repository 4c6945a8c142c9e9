// Finds the vernaculars of a DataSet for links that refer to them by name or by the authority's id, while an
// import adds more of them.
//
// Nothing is built before the first look-up. The cost of a look-up hardly depends on the number of
// vernaculars.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "import/id_maps.h"
#include "import/import_turns.h"
#include "store/engine.h"

namespace quillon::importing {

class VernacularIndex {
public:
    VernacularIndex(store::Database& database, const KeyedRows<VernacularRow>& rows, Turns& turns)
        : database_(database), rows_(rows), turns_(turns) {}

    // The hash that a stored row keeps for look-ups by `name`.
    static std::uint64_t HashOf(std::string_view name);

    // Call Forget before a row is stored again, and Note after a row has been stored.
    void Forget(const VernacularRow& row);
    void Note(const VernacularRow& row);

    // The vern_id of the first vernacular of this import with the name in the taxon, 0 when it has none;
    // empty when there is no such vernacular.
    std::optional<std::int32_t> FindVernId(std::int32_t qb_id, std::string_view name);
    // The qb_vern_id of the first vernacular of the DataSet with the authority's id.
    std::optional<std::int32_t> FindQbVernId(std::int32_t vern_id);

private:
    void Build();

    store::Database& database_;
    const KeyedRows<VernacularRow>& rows_;
    Turns& turns_;
    bool built_ = false;
    // Rows of this import: taxon, hash of the name, qb_vern_id, and vern_id; vern_id and qb_vern_id.
    std::set<std::tuple<std::int32_t, std::uint64_t, std::int32_t, std::int32_t>> byName_;
    std::set<std::pair<std::int32_t, std::int32_t>> byVernId_;
    // Rows that existed before: vern_id and qb_vern_id, sorted.
    std::vector<std::pair<std::int32_t, std::int32_t>> before_;
};

}  // namespace quillon::importing
