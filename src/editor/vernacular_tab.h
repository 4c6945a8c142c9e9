// The vernaculars tab of the main form: the common names of a taxon in a grid, and the fields in which one of
// them is entered.
//
// RecView makes the tab and calls the procedures while it loads a record. Nothing here writes to the DataSet:
// the commands of the tab change the grid, and the save stores what stands there.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "core/application_state.h"
#include "core/controls.h"
#include "core/outside.h"
#include "store/engine.h"

namespace quillon::editor {

// The columns of grdVernacular, whose last row is always the empty one. The ids of a name that is not stored
// yet are "0".
struct VernacularColumn {
    static constexpr std::size_t kName = 0, kLanguage = 1, kApproved = 2;
    static constexpr std::size_t kQbId = 3, kQbVernId = 4, kVernId = 5;
};

struct VernacularTab {
    GridControl grdVernacular;
    LabelControl lblVName;
    TextControl txtVName;
    LabelControl lblLanguage;
    ComboControl cboLanguage;
    CheckControl chkApproved;
    ButtonControl cmdVAdd, cmdVModify, cmdVDelete;

    // The qb_vern_id of the names that were taken from the grid since the record was loaded.
    std::vector<int> removed;

    // Choosing a row shows it in the fields.
    explicit VernacularTab(Form& form);
};

// Empties the grid, the list of removed names and the fields.
void SetupVernacularGrid(VernacularTab& tab);
// The names of the taxon into the grid. The errors of the store pass through.
void LoadVernaculars(VernacularTab& tab, store::Database& database, int qb_id);
// The chosen row in the fields; the empty row, and none, empties them.
void ShowVernacularRow(VernacularTab& tab);
void ClearVernacularFields(VernacularTab& tab);

// Offers the languages of the DataSet that is open when the list is first looked at.
void FillLanguageList(VernacularTab& tab, ApplicationState& state, Prompter& prompter);

// Offers the names of the grid, as `name [language]` with their qb_vern_id, in the pickers of the
// documentation tabs; a picker keeps its text. When there is no name the user is told, unless `mode` is
// "Delete", as the load and the deletion of a name have it.
void FillVernSelectors(const GridControl& grdVernacular, std::span<ComboControl* const> selectors,
                       std::string_view mode, Prompter& prompter);

}  // namespace quillon::editor
