// The publications tab of a taxon record: its controls, and how it shows what is stored.
//
// The same procedures serve every form that composes a PublicationTab: the main window, and the one for
// change tracks, which they know by its caption "Change Tracking". Whoever shows a taxon calls LoadPubGrid
// with its qb_id; the grid's rows count from 0, and its last row is always the empty one. Nothing here writes
// to the DataSet; commands that are not there yet are disabled.
#pragma once

#include <array>

#include "documentation/association.h"
#include "documentation/pick_list.h"

namespace quillon::documentation {

// The columns of grdPublications.
enum PubColumn : std::size_t {
    kPubName,
    kPubAuthor,
    kPubOrgDesc,
    kPubActDate,
    kPubTitle,
    kPubPublication,
    kPubListedDate,
    kPubPublisher,
    kPubLocation,
    kPubISBN,
    kPubISSN,
    kPubPages,
    kPubComments,
    kPubQbId,
    kPubId,
    kPubCtId,
    kPubAssociation,
    kPubQbVernId,
    kPubOrigQbId,
    kPubColumns
};

struct PublicationTab {
    explicit PublicationTab(Form& owner);

    Form& form;

    GridControl grdPublications{form,
                                "grdPublications",
                                {{"Name"},
                                 {"Author"},
                                 {"Org. Desc."},
                                 {"Act. Date"},
                                 {"Title"},
                                 {"Publication"},
                                 {"Listed Date"},
                                 {"Publisher"},
                                 {"Location"},
                                 {"ISBN"},
                                 {"ISSN"},
                                 {"Pages"},
                                 {"Comments"},
                                 {"QB PID", true},
                                 {"PID", true},
                                 {"CT ID", true},
                                 {"Associated With"},
                                 {"QB VERN ID", true},
                                 {"Orig QB PID", true}}};

    PickListControl cboAuthor{form, "cboAuthor", 100};
    PickListControl cboADate{form, "cboADate", 10};
    TextControl txtLDate{form, "txtLDate", 10};
    PickListControl cboTitle{form, "cboTitle", 255};
    PickListControl cboPublication{form, "cboPublication", 255};
    TextControl txtPublisher{form, "txtPublisher", 80};
    TextControl txtLocation{form, "txtLocation", 40};
    TextControl txtISBN{form, "txtISBN", 16};
    TextControl txtISSN{form, "txtISSN", 16};
    TextControl txtPages{form, "txtPages", 15};
    TextControl txtPubComments{form, "txtPubComments"};
    CheckControl chkPOD{form, "chkPOD", "Ori&ginal Descriptor"};

    ComboControl cboVernPubSelect{form, "cboVernPubSelect", ComboControl::Style::ListOnly};
    // Its text may be a vernacular that is not in its list: what the row on show was loaded with.
    ComboControl cboVernPub{form, "cboVernPub"};
    LabelControl lblVernPubCbo{form, "lblVernPubCbo", "Vernacular"};

    TextControl txtPQBID{form, "txtPQBID"};
    TextControl txtPID{form, "txtPID"};

    ButtonControl cmdPubAdd{form, "cmdPubAdd", "&Add"};
    ButtonControl cmdPubModify{form, "cmdPubModify", "&Modify"};
    ButtonControl cmdPubDelete{form, "cmdPubDelete", "&Delete"};

    // The grid row last shown in the edit controls, and one cell more.
    std::array<std::string, kPubColumns + 1> PubFieldSnapshot;

    Association Associated() { return {cboVernPubSelect, cboVernPub, lblVernPubCbo}; }
};

// Hangs the rules on the controls; once, by whoever composes the tab. `state` and `prompter` outlive the
// form.
void SetUpPublications(PublicationTab& tab, ApplicationState& state, Prompter& prompter);
// Another DataSet is open, or none: what the pick lists hold is of no more use.
void ForgetPubLists(PublicationTab& tab, const ApplicationState& state, Prompter& prompter);

// The grid as it is for no rows: the empty row alone.
void InitPubGrid(PublicationTab& tab);
// The tab as it is for a taxon that has not been stored: no rows, empty fields ready for input.
void ResetPublications(PublicationTab& tab);
// Shows the rows of the taxon `qb_id`, under the name of state.currentTaxon, and the first of them in the
// edit controls. A failure is told, and leaves the grid without rows.
void LoadPubGrid(PublicationTab& tab, ApplicationState& state, Prompter& prompter, int qb_id);

// Copies a grid row to the edit controls; the empty row, and a row that is none, clears them.
void ShowPubRow(PublicationTab& tab, int row);
// Empties the edit controls; what is enabled stays so.
void ClearPubFields(PublicationTab& tab);
// The row of a change track is read-only: everything is disabled unless `ctId` is "0".
void SetPubControlsEnabled(PublicationTab& tab, std::string_view ctId);

// Refill one pick list with what goes with the other fields; the field itself is empty afterwards. A failure
// is told, and leaves the list empty.
void NarrowPubAuthors(PublicationTab& tab, const ApplicationState& state, Prompter& prompter);
void NarrowPubNames(PublicationTab& tab, const ApplicationState& state, Prompter& prompter);
void NarrowPubTitles(PublicationTab& tab, const ApplicationState& state, Prompter& prompter);
// All authors into cboAuthor, which keeps its text; after a save and an import. They are read when the list
// is first looked at.
void ReloadPubAuthors(PublicationTab& tab, const ApplicationState& state, Prompter& prompter);
// Copies the one publication that has what the field of `keyWord` ("author", "act_date", "pub_name", "title")
// holds into the fields; with none or several nothing changes. A failure is told.
void PubSelectionFill(PublicationTab& tab, const ApplicationState& state, Prompter& prompter,
                      std::string_view keyWord);

}  // namespace quillon::documentation
