// What the tabs for publications, experts and other sources have in common: the words of an association and
// the controls that hold it, the ids that every row of a load has, and the grid whose last row is always
// empty.
//
// The files of this folder use it; the grid procedures serve the other tabs of a record too. Nothing here
// writes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/application_state.h"
#include "core/controls.h"
#include "core/outside.h"
#include "store/recordset.h"

namespace quillon::documentation {

// What a documentation row is about. A grid row is one of the first two; "Both" stands for a row of each.
inline constexpr std::string_view kScientificName = "Scientific Name";
inline constexpr std::string_view kVernacular = "Vernacular";
inline constexpr std::string_view kBoth = "Both";

// The caption of the form on which the rows of a change track are edited.
inline constexpr std::string_view kChangeTracking = "Change Tracking";
inline bool IsChangeTracking(const Form& form) {
    return form.Title() == kChangeTracking;
}

// The list of association words with the picker of a vernacular and the picker's label, which are shown only
// while the association is not "Scientific Name".
struct Association {
    ComboControl& words;
    ComboControl& picker;
    LabelControl& label;
};
// Puts the three words into the list, shows "Scientific Name", and lets the picker follow the user's choice.
void SetUp(const Association& association);
// "Scientific Name" empties the picker; with another word it takes `vernacular`.
void Show(const Association& association, std::string_view word, std::string_view vernacular);

// The ids and words that a row of any of the three loads has. The two ids of the documentation row have 16
// bits: what does not fit fails at the load.
struct DocRow {
    std::string_view prefix;  // "PUB", "EXP", "SRC"
    std::int16_t qbDocumentId = 0;
    std::int16_t documentId = 0;  // the authority's; 0 for none
    std::int32_t qb_change_track_id = 0;
    std::string_view association;
    std::string vernacular_name, language;  // of a vernacular row; "unspecified" when its row is gone
    std::int32_t qb_vern_id = 0;            // 0 in a row of the scientific name

    // The grid's first column: `scientificName`, or "vernacular [language]".
    std::string Name(std::string_view scientificName) const;
};

// How one taxon's rows are loaded from both tables of links into a grid.
struct DocLoad {
    std::string_view prefix;
    // With the parameter `taxon`. Its first column is `assoc`, an association word, so that the rows of the
    // scientific name come first; its second is the local id or the prefix.
    std::string_view select;
    std::string_view qbIdColumn, idColumn;
    // The cells of a row of the select; `scientificName` is for the first of them.
    GridControl::Row (*gridRow)(const DocRow& doc, const store::Recordset& row,
                                std::string_view scientificName);
};
// Replaces the rows of the grid by those of the taxon `qb_id`, under the name of state.currentTaxon, and
// selects the first. A failure is told, and leaves the grid without rows.
void LoadGrid(GridControl& grid, ApplicationState& state, Prompter& prompter, const DocLoad& load, int qb_id);

// The distinct values of a select with one column, Null as the empty text. Shows the wait cursor meanwhile,
// and tells a failure, which gives no values. Never throws. Without an open DataSet there are no values.
std::vector<ChoiceControl::Choice> ReadChoices(const ApplicationState& state, Prompter& prompter,
                                               std::string_view select, bool skipNull);

// The grid's rows are data, but for the last one, which is empty: where a new row is typed.
void InitGrid(GridControl& grid);
void AddDataRow(GridControl& grid, GridControl::Row row);
bool IsDataRow(const GridControl& grid, int row);

}  // namespace quillon::documentation
