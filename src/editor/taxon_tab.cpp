#include "editor/taxon_tab.h"

#include <utility>

#include "core/attempt.h"
#include "core/names.h"

namespace quillon::editor {

void TaxonTab::Connect(ApplicationState& state, Prompter& prompter) {
    RecordTab::Connect(state, prompter);
    lists_ = std::make_unique<TaxonLists>(state, prompter, *this);
    fields_ = std::make_unique<TaxonFields>(state, prompter, *this, *lists_);
    TrackChanges(state,
                 {&cboRank,   &cboName1,      &cboName2,         &txtName1,       &txtName2,    &txtName3,
                  &txtName4,  &chkHybrid1,    &chkHybrid2,       &chkHybrid3,     &chkQuad,     &chkUnnamed,
                  &optValid,  &optInvalid,    &cboInvalidReason, &cboCredibility, &cboCoverage, &txtCurrency,
                  &cboDPRank, &cboParentName, &chkParentUn,      &cboAuth,        &cboAuth2});
    cboName1.OnEdit([this] { Attempt(Outside(), [this] { lists_->FillSpeciesList(); }); });
    cboDPRank.OnPick([this] {
        State().RecordDirty = true;
        if (!cboDPRank.Text().empty()) Attempt(Outside(), [this] { lists_->FillParentNameList(); });
    });
    cmdParen.OnClick([this] {
        fields_->AddParentheses();
        State().RecordDirty = true;
    });
}

void TaxonTab::OfferLists() {
    appliedRank_ = State().gPrefRank;
    lists_->FillRankList();
    lists_->FillRatingLists();
    lists_->FillReasonList();
    lists_->FillAuthorLists();
    fields_->SetUsageCaptions();
    fields_->ShowUnnamed();
    lists_->FillGenusList();
    txtKingdom.SetText(State().gKingdomName);
    ShowPreferredRank();
    optValid.SetValue(false);
}

void TaxonTab::Clear() {
    ClearFields();
    cboDPRank.Clear();
    cboParentName.Clear();
    SetFieldsForRank();
}

void TaxonTab::ClearForNextEntry() {
    if (!KeptForNextEntry(State().gPrefSaveAuthor)) {
        cboAuth.SetText("");
        cboAuth2.SetText("");
    }
    if (!KeptForNextEntry(State().gPrefSaveParent)) {
        cboDPRank.Clear();
        cboParentName.SetText("");
    }
    chkParentUn.SetValue(false);
    if (!KeptForNextEntry(State().gPrefSaveOtherFields)) ClearOtherFields();
    txtTSN.SetText("0");
}

// Lists first, then the rank, because it hides and empties fields that are then filled from the record.
void TaxonTab::Load(int) {
    Attempt(Outside(), [this] { lists_->FillRankList(); });
    lists_->FillRatingLists();
    lists_->FillReasonList();
    lists_->FillAuthorLists();
    fields_->ShowTaxon();
    RankShown(cboRank.Text());
    if (!txtKingdom.Text().empty()) {
        State().gKingdomName = txtKingdom.Text();
        State().gKingdomId = State().currentTaxon.kingdom_id;
    }
    fields_->SetUsageCaptions();
    rankAsLoaded = cboRank.Text();
    FillNameLists();
}

// The record that was shown may be the parent of a new one.
void TaxonTab::EnterMode(EditorMode mode) {
    lists_->SetRecordInEdit(mode == EditorMode::Edit ? State().currentTaxon.qb_id : 0);
    if (mode == EditorMode::Edit) return;
    if (!txtTSN.Text().empty()) txtTSN.SetText("0");
    Attempt(Outside(), [this] { lists_->OfferParents(); });
}

void TaxonTab::ApplyPreferences(EditorMode mode) {
    const std::string rank = cboRank.Text();
    Attempt(Outside(), [this] { lists_->FillRankList(); });
    lists_->FillReasonList();
    fields_->SetUsageCaptions();
    fields_->ShowUnnamed();
    cboRank.SetText(rank);
    const std::string& preferred = State().gPrefRank;
    const bool isAnother = std::exchange(appliedRank_, preferred) != preferred;
    if (isAnother && mode != EditorMode::Edit && rank != preferred)
        Attempt(Outside(), [this] { TakePreferredRank(); });
}

void TaxonTab::SetFieldsForRank() {
    fields_->SetFieldsForRank();
    RankShown(cboRank.Text());
}

void TaxonTab::EnterParent(const std::string& rank, int rank_id, const std::string& name) {
    // The user has already confirmed a rank that the record's own rank does not allow.
    if (!rank.empty() && cboDPRank.FindText(rank) < 0) cboDPRank.AddItem(rank, rank_id);
    cboDPRank.SetText(rank);
    if (!rank.empty()) lists_->FillParentNameList();
    cboParentName.SetText(name);
}

std::string TaxonTab::EnteredUnit(int unit) const {
    switch (unit) {
        case 1:
            return cboName1.Visible() ? cboName1.Text() : txtName1.Text();
        case 2:
            return cboName2.Visible() ? cboName2.Text() : txtName2.Text();
        case 3:
            return txtName3.Text();
        default:
            return txtName4.Text();
    }
}

int TaxonTab::ChosenParent() const {
    const CurrentTaxon& taxon = State().currentTaxon;
    const bool isUntouched = taxon.parent_qb_id != 0 && cboParentName.Text() == taxon.parent_name &&
                             cboDPRank.Text() == taxon.parent_rank_name;
    if (isUntouched) return 0;
    const int chosen = cboParentName.ListIndex();
    const int place = chosen >= 0 ? chosen : cboParentName.FindText(cboParentName.Text());
    return static_cast<int>(cboParentName.ItemData(place));
}

std::string TaxonTab::CurrentTaxonName() const {
    const CurrentTaxon& taxon = State().currentTaxon;
    return quillon::CurrentTaxonName({taxon.unit_ind1, taxon.unit_name1, taxon.unit_ind2, taxon.unit_name2,
                                      taxon.unit_ind3, taxon.unit_name3, taxon.unit_ind4, taxon.unit_name4,
                                      cboName1.Text(), txtName1.Text(), cboName2.Text(), txtName2.Text(),
                                      txtName3.Text()});
}

// Prepares a new record as a click on its rank does: its fields, its parent ranks, the lists of names.
void TaxonTab::ShowPreferredRank() {
    cboRank.SetText(State().gPrefRank);
    SetFieldsForRank();
    lists_->SetPRankList(State().gPrefRank);
}

// Shows the fields of the new preferred rank but keeps the usage and the parent's rank.
void TaxonTab::TakePreferredRank() {
    const std::string parentRank = cboDPRank.Text();
    const bool valid = optValid.Value(), invalid = optInvalid.Value();
    ShowPreferredRank();
    optValid.SetValue(valid);
    optInvalid.SetValue(invalid);
    cboDPRank.SetText(parentRank);
    lists_->OfferParents();
}

// Names, usage and ratings. The kingdom is that of the DataSet, and the rank is the preferred one.
void TaxonTab::ClearOtherFields() {
    const std::string kingdom = txtKingdom.Text(), parentRank = cboDPRank.Text(),
                      parent = cboParentName.Text(), author = cboAuth.Text(), hybridAuthor = cboAuth2.Text();
    const bool keepsParent = cboDPRank.ListCount() > 0;
    ClearFields();
    txtKingdom.SetText(kingdom);
    cboRank.SetText(State().gPrefRank);
    SetFieldsForRank();
    optValid.SetValue(false);
    if (keepsParent) lists_->SetPRankList(State().gPrefRank);
    cboDPRank.SetText(parentRank);
    cboParentName.SetText(parent);
    cboAuth.SetText(author);
    cboAuth2.SetText(hybridAuthor);
}

// The lists of genera and species belong to the record that is shown now.
void TaxonTab::FillNameLists() {
    if (State().currentTaxon.rank_id < State().gRankSpecies) return;
    Attempt(Outside(), [this] { lists_->FillGenusList(); });
    Attempt(Outside(), [this] { lists_->FillSpeciesList(); });
}

}  // namespace quillon::editor
