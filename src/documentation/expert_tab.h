// The experts tab of a taxon record: its controls, and how it shows what is stored. The design of
// publication_tab.h, for experts.
//
// Whoever shows a taxon calls LoadExpertGrid with its qb_id; the grid's rows count from 0, and its last row
// is always the empty one. Nothing here writes to the DataSet; commands that are not there yet are disabled.
#pragma once

#include "documentation/association.h"
#include "documentation/pick_list.h"

namespace quillon::documentation {

// The columns of grdExperts.
enum ExpertColumn : std::size_t {
    kExpName,
    kExpExpert,
    kExpComments,
    kExpQbId,
    kExpId,
    kExpCtId,
    kExpAssociation,
    kExpQbVernId,
    kExpOrigQbId,
    kExpColumns
};

struct ExpertTab {
    explicit ExpertTab(Form& owner);

    Form& form;

    GridControl grdExperts{form,
                           "grdExperts",
                           {{"Name"},
                            {"Expert"},
                            {"Comments"},
                            {"QB EID", true},
                            {"EID", true},
                            {"CTID", true},
                            {"Assocociated With"},
                            {"QB VERN ID", true},
                            {"Orig QB EID", true}}};

    PickListControl cboExpert{form, "cboExpert", 100};
    TextControl txtExpComments{form, "txtExpComments"};

    ComboControl cboVernExpSelect{form, "cboVernExpSelect", ComboControl::Style::ListOnly};
    // Its text may be a vernacular that is not in its list: what the row on show was loaded with.
    ComboControl cboVernExp{form, "cboVernExp"};
    LabelControl lblVernExpCbo{form, "lblVernExpCbo", "Verna&cular"};

    TextControl txtEQBID{form, "txtEQBID"};
    TextControl txtEID{form, "txtEID"};

    ButtonControl cmdExpAdd{form, "cmdExpAdd", "&Add"};
    ButtonControl cmdExpModify{form, "cmdExpModify", "&Modify"};
    ButtonControl cmdExpDelete{form, "cmdExpDelete", "&Delete"};

    Association Associated() { return {cboVernExpSelect, cboVernExp, lblVernExpCbo}; }
};

// Hangs the rules on the controls; once, by whoever composes the tab. `state` and `prompter` outlive the
// form.
void SetUpExperts(ExpertTab& tab, ApplicationState& state, Prompter& prompter);

// The grid as it is for no rows: the empty row alone.
void InitExpertGrid(ExpertTab& tab);
// The tab as it is for a taxon that has not been stored: no rows, empty fields ready for input.
void ResetExperts(ExpertTab& tab);
// Shows the rows of the taxon `qb_id`, under the name of state.currentTaxon, and the first of them in the
// edit controls. A failure is told, and leaves the grid without rows.
void LoadExpertGrid(ExpertTab& tab, ApplicationState& state, Prompter& prompter, int qb_id);

// Copies a grid row to the edit controls; the empty row, and a row that is none, clears them.
void ShowExpertRow(ExpertTab& tab, int row);
// Empties the edit controls; what is enabled stays so.
void ClearExpertFields(ExpertTab& tab);
// The row of a change track is read-only: the expert is disabled unless `ctId` is "0"; the comments never
// are.
void SetExpertControlsEnabled(ExpertTab& tab, std::string_view ctId);

// All experts into cboExpert, which keeps its text; when another DataSet is open, after a save and an import.
// They are read when the list is first looked at.
void ReloadExperts(ExpertTab& tab, const ApplicationState& state, Prompter& prompter);
// Fills the comment and both ids from the first stored expert of the name in cboExpert; without one nothing
// changes. A failure is told.
void ExpertSelectionFill(ExpertTab& tab, const ApplicationState& state, Prompter& prompter);

}  // namespace quillon::documentation
