// The other sources tab of a taxon record: its controls, and how it shows what is stored. The design of
// publication_tab.h, for other sources.
//
// Whoever shows a taxon calls LoadOtherSourceGrid with its qb_id; the grid's rows count from 0, and its last
// row is always the empty one. Nothing here writes to the DataSet; commands that are not there yet are
// disabled.
#pragma once

#include "documentation/association.h"
#include "documentation/pick_list.h"

namespace quillon::documentation {

// The columns of grdOtherSources.
enum OtherSourceColumn : std::size_t {
    kSrcName,
    kSrcSource,
    kSrcType,
    kSrcVersion,
    kSrcAcquisitionDate,
    kSrcComments,
    kSrcQbId,
    kSrcId,
    kSrcCtId,
    kSrcAssociation,
    kSrcQbVernId,
    kSrcOrigQbId,
    kSrcColumns
};

struct OtherSourceTab {
    explicit OtherSourceTab(Form& owner);

    Form& form;

    GridControl grdOtherSources{form,
                                "grdOtherSources",
                                {{"Name"},
                                 {"Source"},
                                 {"Srce Type"},
                                 {"Version"},
                                 {"Acquis Date"},
                                 {"Comments"},
                                 {"QB OSID", true},
                                 {"OSID", true},
                                 {"CTID", true},
                                 {"Associated With"},
                                 {"QB VERN ID", true},
                                 {"Orig QB OSID", true}}};

    PickListControl cboSource{form, "cboSource", 64};
    TextControl txtSourceType{form, "txtSourceType", 10};
    TextControl txtVersion{form, "txtVersion", 10};
    TextControl txtADate{form, "txtADate", 10};
    TextControl txtOSComments{form, "txtOSComments"};

    ComboControl cboVernSrcSelect{form, "cboVernSrcSelect", ComboControl::Style::ListOnly};
    // Its text may be a vernacular that is not in its list: what the row on show was loaded with.
    ComboControl cboVernSrc{form, "cboVernSrc"};
    LabelControl lblVernSrcCbo{form, "lblVernSrcCbo", "Verna&cular"};

    TextControl txtOSQBID{form, "txtOSQBID"};
    TextControl txtOSID{form, "txtOSID"};

    ButtonControl cmdOSAdd{form, "cmdOSAdd", "&Add"};
    ButtonControl cmdOSModify{form, "cmdOSModify", "&Modify"};
    ButtonControl cmdOSDelete{form, "cmdOSDelete", "&Delete"};

    Association Associated() { return {cboVernSrcSelect, cboVernSrc, lblVernSrcCbo}; }
};

// Hangs the rules on the controls; once, by whoever composes the tab. `state` and `prompter` outlive the
// form.
void SetUpOtherSources(OtherSourceTab& tab, ApplicationState& state, Prompter& prompter);

// The grid as it is for no rows: the empty row alone.
void InitOtherSourceGrid(OtherSourceTab& tab);
// The tab as it is for a taxon that has not been stored: no rows, empty fields ready for input.
void ResetOtherSources(OtherSourceTab& tab);
// Shows the rows of the taxon `qb_id`, under the name of state.currentTaxon, and the first of them in the
// edit controls. A failure is told, and leaves the grid without rows.
void LoadOtherSourceGrid(OtherSourceTab& tab, ApplicationState& state, Prompter& prompter, int qb_id);

// Copies a grid row to the edit controls; the empty row, and a row that is none, clears them.
void ShowOtherSourceRow(OtherSourceTab& tab, int row);
// Empties the edit controls; what is enabled stays so.
void ClearOtherSourceFields(OtherSourceTab& tab);
// The row of a change track is read-only: everything is disabled unless `ctId` is "0".
void SetOtherSourceControlsEnabled(OtherSourceTab& tab, std::string_view ctId);

// All sources into cboSource, which keeps its text; when another DataSet is open, after a save and an import.
// They are read when the list is first looked at.
void ReloadOtherSources(OtherSourceTab& tab, const ApplicationState& state, Prompter& prompter);
// Fills the other fields and both ids from the first stored source of the name in cboSource; without one
// nothing changes. A failure is told.
void OtherSourceSelectionFill(OtherSourceTab& tab, const ApplicationState& state, Prompter& prompter);

}  // namespace quillon::documentation
