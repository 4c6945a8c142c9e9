// The modes of the editor: the start of a DataSet, a new record, a copy, and what goes with each.
#include <fmt/format.h>

#include <span>
#include <utility>

#include "editor/rec_view.h"
#include "editor/rec_view_load.h"

namespace quillon::editor {

namespace {

constexpr std::string_view kDropped = "No";

}  // namespace

void RecView::SetEnabled(std::string_view key, bool enabled) {
    navigation_.ChangeStateTo(key, enabled);
    edit_.ChangeStateTo(key, enabled);
}

// "delete" waits for its command.
void RecView::MakeToolbarManagers() {
    const auto buttons = [this](std::span<const std::string_view> keys) {
        navigation::TBBtnMgr::Toolbar toolbar;
        for (const std::string_view key : keys) toolbar.emplace(key, controls_.OfKey(key));
        return toolbar;
    };
    navigation_.Init(buttons(navigation::kNavigationKeys), navigation::kNavigationKeys, true);
    edit_.Init(buttons(navigation::kEditKeys), navigation::kEditKeys, true);
    for (const std::string_view key : {"paste", "undo", "delete"}) edit_.Disable(key);
}

void RecView::EnterInput() {
    controls_.cmdOK.SetCaption("&Save");
    editing_.mode = "INPUT";
    lists_.SetRecordInEdit(0);
    StatusPanelSet("mode", editing_.mode);
    // A new record is nobody yet: the one that was shown may be its parent, or its accepted name.
    Guarded([this] { lists_.OfferParents(); });
    FillAcceptedNameList(controls_.synonyms, state_, prompter_);
}

void RecView::EnterEdit() {
    controls_.cmdOK.SetCaption("&Save Changes");
    editing_.mode = "EDIT";
    lists_.SetRecordInEdit(state_.currentTaxon.qb_id);
    for (const std::string_view key : {"addnew", "moveprev", "movenext"}) SetEnabled(key, true);
    StatusPanelSet("mode", editing_.mode);
}

void RecView::ShowDataSet() {
    const ChangeScope scope(controls_.form);
    prompter_.WaitCursor(true);
    if (state_.gDataSetOpen) {
        progress_.NewTask("Loading Taxon Data");
        progress_.SetStatus("Loading...");
    }
    StartOfDataSet();
    SetEnabled("paste", false);
    SetEnabled("undo", false);
    if (RebuildExplorer) RebuildExplorer();
    if (state_.gDataSetOpen) progress_.EndTask();
    prompter_.WaitCursor(false);
}

void RecView::StartOfDataSet() {
    const ChangeScope scope(controls_.form);
    state_.currentTaxon = CurrentTaxon();
    ClearForm();
    controls_.form.SetTitle(state_.gDataSetOpen ? "Taxonomic Quillon - " + state_.gDataSetPath
                                                : std::string(dataset::kTitleNoDataSet));
    EnterInput();
    StatusPanelSet("name", "");
    StatusPanelSet("taxa", "");
    if (state_.gDataSetOpen) Guarded([this] { StartLists(); });
    appliedRank_ = state_.gPrefRank;
    if (!state_.gDataSetOpen) {
        editing_.mode.clear();
        StatusPanelSet("mode", "");
    }
    for (const std::string_view key : {"cut", "copy", "addnew", "moveprev", "movenext"})
        SetEnabled(key, true);
    editing_.firstWarning = true;
    state_.RecordDirty = false;
    state_.gNewChangeTrackIds.clear();
}

void RecView::StartLists() {
    lifecycle_.ReadKingdomAndRanks();
    lists_.FillRankList();
    lists_.FillRatingLists();
    lists_.FillReasonList();
    lists_.FillAuthorLists();
    SetKingdomWords();
    FillLanguageList(controls_.vernaculars, state_, prompter_);
    FillSynonymRankList(controls_.synonyms, *state_.gDatabase, state_.gPrefRank);
    FillAcceptedNameList(controls_.synonyms, state_, prompter_);
    lists_.FillGenusList();
    documentation::ForgetPubLists(controls_.publications, state_, prompter_);
    documentation::ReloadExperts(controls_.experts, state_, prompter_);
    documentation::ReloadOtherSources(controls_.otherSources, state_, prompter_);
    controls_.taxon.txtKingdom.SetText(state_.gKingdomName);
    ShowPreferredRank();
    controls_.taxon.optValid.SetValue(false);
    StatusPanelSet("taxa", fmt::format("TAXA: {}", CountTaxa()));
}

// What the rank's click prepares for a new record: its fields, its parent ranks, the lists of names.
void RecView::ShowPreferredRank() {
    controls_.taxon.cboRank.SetText(state_.gPrefRank);
    SetFieldsForRank();
    lists_.SetPRankList(state_.gPrefRank);
}

void RecView::SetKingdomWords() {
    fields_.SetUsageCaptions();
    fields_.ShowUnnamed();
    SetAcceptedNameCaptions(controls_.synonyms, state_.gKingdomName);
}

void RecView::Reset() {
    if (std::exchange(state_.gPreferencesChanging, false)) return ReapplyPreferences();
    if (state_.gDataSetOpen && state_.currentTaxon.qb_id != 0) return ShowRecord();
    StartOfDataSet();
}

// What is on the form stays. Only a new record takes the preferred rank, when that is another one now.
void RecView::ReapplyPreferences() {
    const ChangeScope scope(controls_.form);
    const std::string rank = controls_.taxon.cboRank.Text();
    Guarded([this] {
        if (state_.gDataSetOpen) lifecycle_.ReadKingdomAndRanks();
        lists_.FillRankList();
    });
    lists_.FillReasonList();
    const std::string heading = controls_.synonyms.lblSynonyms.Caption();
    SetKingdomWords();
    if (editing_.mode == "EDIT")
        controls_.synonyms.lblSynonyms.SetCaption(heading);  // that of what the grid holds
    controls_.taxon.cboRank.SetText(rank);
    const bool isAnother = std::exchange(appliedRank_, state_.gPrefRank) != state_.gPrefRank;
    if (isAnother && editing_.mode != "EDIT" && rank != state_.gPrefRank)
        Guarded([this] { TakePreferredRank(); });
}

// The fields of another rank come without the usage and the parent that the rank would bring with it.
void RecView::TakePreferredRank() {
    TaxonTab& tab = controls_.taxon;
    const std::string parentRank = tab.cboDPRank.Text();
    const bool valid = tab.optValid.Value(), invalid = tab.optInvalid.Value();
    ShowPreferredRank();
    tab.optValid.SetValue(valid);
    tab.optInvalid.SetValue(invalid);
    tab.cboDPRank.SetText(parentRank);
    lists_.OfferParents();
}

void RecView::ClearForm() {
    ClearTaxonTab(controls_.taxon);
    controls_.taxon.cboDPRank.Clear();
    controls_.taxon.cboParentName.Clear();
    SetFieldsForRank();
    SetupVernacularGrid(controls_.vernaculars);
    SetupSynonymGrid(controls_.synonyms);
    ClearDistribution(controls_.distribution);
    SetupCommentGrid(controls_.comments);
    ClearDocumentation();
}

void RecView::ClearDocumentation() {
    documentation::ResetPublications(controls_.publications);
    documentation::ResetExperts(controls_.experts);
    documentation::ResetOtherSources(controls_.otherSources);
}

// RVPanel 4 is enabled exactly for the ranks that have a distribution.
void RecView::SetFieldsForRank() {
    fields_.SetFieldsForRank();
    controls_.RVPanel4.SetEnabled(RankHasDistribution(controls_.taxon.cboRank.Text()));
}

void RecView::AddNew() {
    if (AskLoseChanges()) return;
    ClearForNextEntry();
    EnterInput();
    state_.currentTaxon.qb_id = 0;
    editing_.dropInProgress = false;
}

void RecView::CopyRecord() {
    if (AskLoseChanges()) return;
    EnterInput();
    for (const std::string_view key :
         {"cut", "copy", "paste", "undo", "delete", "addnew", "moveprev", "movenext"}) {
        SetEnabled(key, false);
    }
    state_.currentTaxon.qb_id = 0;
    state_.currentTaxon.tsn = 0;
    controls_.taxon.txtTSN.SetText("0");
}

void RecView::ClearForNextEntry() {
    const ChangeScope scope(controls_.form);
    TaxonTab& tab = controls_.taxon;
    if (state_.gPrefSaveReferences == kDropped) ClearDocumentation();
    if (state_.gPrefSaveAuthor == kDropped) {
        tab.cboAuth.SetText("");
        tab.cboAuth2.SetText("");
    }
    if (state_.gPrefSaveParent == kDropped) {
        tab.cboDPRank.Clear();
        tab.cboParentName.SetText("");
    }
    if (state_.gPrefSaveComments == kDropped) SetupCommentGrid(controls_.comments);
    tab.chkParentUn.SetValue(false);
    ClearRecordVariables(state_);
    if (state_.gPrefSaveOtherFields == kDropped) ClearOtherFields();
    state_.currentTaxon.qb_id = 0;
    tab.txtTSN.SetText("0");
    state_.RecordDirty = false;
    state_.gNewChangeTrackIds.clear();
}

// Names, usage, ratings and the tabs 2 to 4; the kingdom is that of the DataSet, and the rank begins as the
// preferences have it.
void RecView::ClearOtherFields() {
    TaxonTab& tab = controls_.taxon;
    const std::string kingdom = tab.txtKingdom.Text(), parentRank = tab.cboDPRank.Text(),
                      parent = tab.cboParentName.Text(), author = tab.cboAuth.Text(),
                      hybridAuthor = tab.cboAuth2.Text();
    const bool keepsParent = tab.cboDPRank.ListCount() > 0;
    ClearTaxonTab(tab);
    tab.txtKingdom.SetText(kingdom);
    tab.cboRank.SetText(state_.gPrefRank);
    SetFieldsForRank();
    tab.optValid.SetValue(false);
    if (keepsParent) lists_.SetPRankList(state_.gPrefRank);
    tab.cboDPRank.SetText(parentRank);
    tab.cboParentName.SetText(parent);
    tab.cboAuth.SetText(author);
    tab.cboAuth2.SetText(hybridAuthor);
    SetupVernacularGrid(controls_.vernaculars);
    SetupSynonymGrid(controls_.synonyms);
    ClearDistribution(controls_.distribution);
}

}  // namespace quillon::editor
