#include "editor/rank_fields.h"

#include <algorithm>
#include <string>

#include "core/text.h"

namespace quillon::editor {

namespace {

constexpr std::array<RankFields, 29> kRankFields = {{
    {"KINGDOM", {"Kingdom", "", ""}, false, false, 0, true, false},
    {"SUBKINGDOM", {"Subkingdom", "", ""}, false, false, 0, true, false},
    {"PHYLUM", {"Phylum", "", ""}, false, false, 0, true, false},
    {"SUBPHYLUM", {"Subphylum", "", ""}, false, false, 0, true, false},
    {"DIVISION", {"Division", "", ""}, false, false, 0, true, false},
    {"SUBDIVISION", {"Subdivision", "", ""}, false, false, 0, true, false},
    {"SUPERCLASS", {"Superclass", "", ""}, false, false, 0, true, false},
    {"CLASS", {"Class", "", ""}, false, false, 0, true, false},
    {"SUBCLASS", {"Subclass", "", ""}, false, false, 0, true, false},
    {"INFRACLASS", {"Infraclass", "", ""}, false, false, 0, true, false},
    {"SUPERORDER", {"Superorder", "", ""}, false, false, 0, true, false},
    {"ORDER", {"Order", "", ""}, false, false, 0, true, false},
    {"SUBORDER", {"Suborder", "", ""}, false, false, 0, true, false},
    {"INFRAORDER", {"Infraorder", "", ""}, false, false, 0, true, false},
    {"SUPERFAMILY", {"Superfamily", "", ""}, false, false, 0, true, false},
    {"FAMILY", {"Family", "", ""}, false, false, 0, true, false},
    {"SUBFAMILY", {"Subfamily", "", ""}, false, false, 0, true, false},
    {"TRIBE", {"Tribe", "", ""}, false, false, 0, true, false},
    {"SUBTRIBE", {"Subtribe", "", ""}, false, false, 0, true, false},
    {"GENUS", {"Genus", "", ""}, false, false, 1, true, false},
    {"SUBGENUS", {"Genus", "Subgenus", ""}, true, false, 0, false, false},
    {"SECTION", {"Section", "", ""}, false, false, 0, false, false},
    {"SUBSECTION", {"Subsection", "", ""}, false, false, 0, false, false},
    {"SPECIES", {"Genus", "Species", ""}, true, false, 3, false, false},
    {"SUBSPECIES", {"Genus", "Species", "Subspecies"}, true, true, 2, false, false},
    {"VARIETY", {"Genus", "Species", ""}, true, true, 2, false, true},
    {"SUBVARIETY", {"Genus", "Species", ""}, true, true, 2, false, true},
    {"FORM", {"Genus", "Species", ""}, true, true, 2, false, true},
    {"SUBFORM", {"Genus", "Species", ""}, true, true, 2, false, true},
}};

}  // namespace

const RankFields* FieldsOfRank(std::string_view rank) {
    const std::string word = UpperCase(Trim(rank));
    const auto found = std::find_if(kRankFields.begin(), kRankFields.end(),
                                    [&](const RankFields& row) { return row.rank == word; });
    return found == kRankFields.end() ? nullptr : &*found;
}

}  // namespace quillon::editor
