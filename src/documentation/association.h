// What a documentation row is about: the name of the taxon, one of its vernaculars, or both; and the controls
// in which that is chosen.
//
// DocumentationTab composes it. Nothing here reads the store.
#pragma once

#include <string_view>
#include <vector>

#include "core/controls.h"
#include "documentation/document_description.h"

namespace quillon::documentation {

// A grid row is one of the first two; "Both" stands for a row of each.
inline constexpr std::string_view kScientificName = "Scientific Name";
inline constexpr std::string_view kVernacular = "Vernacular";
inline constexpr std::string_view kBoth = "Both";

// The list of the three words with the picker of a vernacular and its label, which are shown only while the
// association is not "Scientific Name".
struct Association {
    Association(Form& form, const DocumentDescription& description);

    // "Scientific Name" empties the picker; with another word it takes `vernacular`.
    void Show(std::string_view word, std::string_view vernacular);
    // Replaces the vernaculars to pick from; the picker keeps its text.
    void Offer(const std::vector<ChoiceControl::Choice>& vernaculars);

    ComboControl words;
    // Its text may be a vernacular that is not in its list: what the row on show was loaded with.
    ComboControl picker;
    LabelControl label;

private:
    void ShowPicker();
};

}  // namespace quillon::documentation
