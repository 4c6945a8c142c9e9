// What a documentation row refers to: the name of the taxon, one of its vernaculars, or both; and the
// controls that choose it.
//
// DocumentationTab composes it. Nothing here reads the store.
#pragma once

#include <string_view>
#include <vector>

#include "core/controls.h"
#include "documentation/document_description.h"

namespace quillon::documentation {

// A grid row is one of the first two; "Both" makes one row of each.
inline constexpr std::string_view kScientificName = "Scientific Name";
inline constexpr std::string_view kVernacular = "Vernacular";
inline constexpr std::string_view kBoth = "Both";

// The list of the three words, and the picker of a vernacular with its label. These two are visible only
// while the association is not "Scientific Name".
struct Association {
    Association(Form& form, const DocumentDescription& description);

    // "Scientific Name" empties the picker; any other word sets it to `vernacular`.
    void Show(std::string_view word, std::string_view vernacular);
    // Replaces the vernaculars to pick from; the picker keeps its text. The former ones stay known to
    // FormerName and KnownId until the next call.
    void Offer(const std::vector<ChoiceControl::Choice>& vernaculars);

    // The qb_vern_id of a vernacular among those to pick from; 0 when it is not one of them, or is not stored
    // yet.
    int IdOf(std::string_view vernacular) const;
    int PickedId() const { return IdOf(picker.Text()); }
    // The same among the former ones too.
    int KnownId(std::string_view vernacular) const;
    // The vernacular that had that id among the former ones; "" when there is none, and for 0.
    std::string FormerName(int qb_vern_id) const;

    ComboControl words;
    // Its text may be missing from its list: it is the vernacular that the row was loaded with.
    ComboControl picker;
    LabelControl label;

private:
    void ShowPicker();
    std::vector<ChoiceControl::Choice> former_;
};

}  // namespace quillon::documentation
