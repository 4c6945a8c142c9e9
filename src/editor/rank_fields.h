// What the taxon tab shows for a rank, as one table of data: the labels of the name's units, the fields that
// take them, the hybrid marks and the ratings. TaxonFields applies it, after a load and after a choice of the
// user alike.
#pragma once

#include <array>
#include <string_view>

namespace quillon::editor {

struct RankFields {
    std::string_view rank;                   // upper case
    std::array<std::string_view, 3> labels;  // "" for a unit that the rank does not have
    bool genusFromList;                      // cboName1 in place of txtName1
    bool epithetFromList;                    // cboName2 in place of txtName2
    int hybridMarks;                         // the first ones of chkHybrid1 to chkHybrid3
    bool hasCompleteness;                    // completeness and currency
    bool mayBeQuadrinomial;                  // the third label is the text of cboRank
};

// `rank` in any case, with or without blanks around it; nullptr for a text that is no rank.
const RankFields* FieldsOfRank(std::string_view rank);

}  // namespace quillon::editor
