// frmChgTrk, the form of one change track of the taxon on the main form: reason, people, operation, comments,
// and the documents that support the change.
//
// Its three documentation tabs are those of the main form with another purpose: here the rows that belong to
// the track can be changed. No command opens the form yet.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "core/application_state.h"
#include "core/entry_grid.h"
#include "core/outside.h"
#include "core/signal.h"
#include "curation/change_track_store.h"
#include "documentation/documentation_tab.h"

namespace quillon::curation {

class FrmChgTrk {
public:
    // A new track of CurrentTaxon, which must be stored. A DataSet must be open. All references must outlive
    // the form.
    FrmChgTrk(ApplicationState& state, store::Engine& engine, Prompter& prompter);

    // Shows a stored track of CurrentTaxon. False when there is none, or it could not be read, which has been
    // reported.
    bool Load(int qb_change_track_id);

    // The track has been stored; the form closes next.
    Signal<> Stored;

    Form form{"frmChgTrk"};
    TabStripControl TabStrip1{form,
                              "TabStrip1",
                              {{"track", "Change Track"},
                               {"comments", "Comments"},
                               {"publications", "Publications"},
                               {"experts", "Experts"},
                               {"othersources", "Other Sources"}}};
    LabelControl lblOperation{form, "lblOperation", "O&peration"};
    ComboControl cboOperation{form, "cboOperation", ComboControl::Style::ListOnly};
    LabelControl lblReason{form, "lblReason", "&Reason"};
    ComboControl cboReason{form, "cboReason", ComboControl::Style::ListOnly};
    LabelControl lblInitiator{form, "lblInitiator", "&Initiator"};
    TextControl txtInitiator{form, "txtInitiator", 100};
    LabelControl lblReviewer{form, "lblReviewer", "Re&viewer"};
    TextControl txtReviewer{form, "txtReviewer", 100};
    LabelControl lblCertifier{form, "lblCertifier", "Cer&tifier"};
    TextControl txtCertifier{form, "txtCertifier", 100};
    // The qb_id of the taxon, the qb_change_track_id, and the change_track_id; locked.
    TextControl txtID{form, "txtID"}, txtQBID{form, "txtQBID"}, txtCTID{form, "txtCTID"};

    EntryGridControl grdComments{
        form, "grdComments", {{"Comment", false, 60}, {"QB CID", true, 8}, {"CID", true, 8}}};
    LabelControl lblComment{form, "lblComment", "Co&mment"};
    TextControl txtComment{form, "txtComment", 250};
    ButtonControl cmdCAdd{form, "cmdCAdd", "&Add"};
    ButtonControl cmdCDelete{form, "cmdCDelete", "&Delete"};

    documentation::DocumentationTab publications{form, documentation::Publications(),
                                                 documentation::FormPurpose::ChangeTracking};
    documentation::DocumentationTab experts{form, documentation::Experts(),
                                            documentation::FormPurpose::ChangeTracking};
    documentation::DocumentationTab otherSources{form, documentation::OtherSources(),
                                                 documentation::FormPurpose::ChangeTracking};

    ButtonControl cmdOK{form, "cmdOK", "&OK"};
    ButtonControl cmdCancel{form, "cmdCancel", "&Cancel"};

private:
    std::array<documentation::DocumentationTab*, 3> Documents();
    void OfferVernaculars();
    void ShowTrack();
    void ShowDocuments();
    void AddComment();
    void DeleteComment();
    void ShowComment();
    bool Refuse(std::string_view message, Control& field);
    void OK();
    void TakeTrack();
    // False when a step failed, which has been reported; the form stays open then.
    bool Store(const records::RecordStore& records);
    bool StoreNew(const records::RecordStore& records);
    bool StoreChanges(const records::RecordStore& records);
    bool StoreComments(const records::RecordStore& records);

    ApplicationState& state_;
    store::Engine& engine_;
    Prompter& prompter_;
    ChangeTrack track_;
    int storedOperation_ = 0;
    std::vector<int> removedComments_;
};

}  // namespace quillon::curation
