#include "import/id_maps.h"

#include <algorithm>

namespace quillon::importing {

void AuthorTexts::Add(std::string_view text, std::int32_t id) {
    if (text.empty() || ids_.find(text) != ids_.end()) return;
    ids_.emplace(std::string(text), id);
}

std::int32_t AuthorTexts::Find(std::string_view text) const {
    const auto found = ids_.find(text);
    return found == ids_.end() ? 0 : found->second;
}

std::int32_t IdMaps::MapTaxonId(std::int32_t key) const {
    const RowPlace place = taxa.Find(key);
    return place == kNoRow ? -1 : taxa[place].newId;
}

RowPlace IdMaps::FindTaxonByNewId(std::int64_t newId) const {
    const auto found = std::lower_bound(taxa.begin(), taxa.end(), newId,
                                        [](const TaxonRow& row, std::int64_t id) { return row.newId < id; });
    if (found == taxa.end() || found->newId != newId) return kNoRow;
    return static_cast<RowPlace>(found - taxa.begin());
}

}  // namespace quillon::importing
