// The compositions of a scientific name. They differ in blanks, in dropped units and in the treatment of
// Null. Matches depend on these differences and users see them, so the procedures must not be merged.
//
// The procedures take the eight fields as a NameFields, filled by the caller; none reads the store.
#pragma once

#include <string>
#include <string_view>

#include "core/value.h"

namespace quillon {

// The marks and units of one name; each is a text or Null. unit_name2 of a subgenus holds its parentheses.
struct NameFields {
    Value unit_ind1, unit_name1, unit_ind2, unit_name2, unit_ind3, unit_name3, unit_ind4, unit_name4;
};

// The name fields of any row that has these eight fields by name.
template <typename Row>
NameFields NameFieldsOf(const Row& row) {
    return {row["unit_ind1"], row["unit_name1"], row["unit_ind2"], row["unit_name2"],
            row["unit_ind3"], row["unit_name3"], row["unit_ind4"], row["unit_name4"]};
}

// Each run of blanks and tabs becomes one blank; then trimmed at both ends.
std::string CompressSpacesAndTrim(std::string_view text);

// The plain composition, for everything but the merge. It stops at the first of units 2 and 3 whose mark and
// name are both Null, so later units are lost; blanks inside a field survive.
std::string BuildSciName(const NameFields& name);

// The composition of the merge: as BuildSciName with the first two units trimmed, then compressed.
std::string ConcatSName(const NameFields& name);

// The line of a tree node without the usage mark: all units, also empty ones, each mark and name after a
// blank, then two blanks and the author. `taxonAuthor` may be Null.
std::string CalcPlainNodeName(const NameFields& name, const Value& taxonAuthor);
// What CalcPlainNodeName returns for a missing row: one blank.
std::string CalcPlainNodeNameOfNoRow();

// The name units of the taxon under edit and of the form's name controls, texts that are never Null.
struct EditedName {
    std::string unit_ind1, unit_name1, unit_ind2, unit_name2, unit_ind3, unit_name3, unit_ind4, unit_name4;
    std::string cboName1, txtName1, cboName2, txtName2, txtName3;
};
// The name of the taxon on the form: from the record when it has one of its first three units, else from the
// controls.
std::string CurrentTaxonName(const EditedName& name);

}  // namespace quillon
