#include "editor/taxon_tab.h"

#include <initializer_list>
#include <utility>

#include "core/attempt.h"
#include "core/names.h"
#include "core/text.h"

namespace quillon::editor {

void TaxonTab::Connect(ApplicationState& state, Prompter& prompter) {
    RecordTab::Connect(state, prompter);
    lists_ = std::make_unique<TaxonLists>(state, prompter, *this);
    fields_ = std::make_unique<TaxonFields>(state, prompter, *this, *lists_);
    usage_ = std::make_unique<UsageSwitch>(state, prompter, *this);
    usage_->Changed.Connect([this](bool rejected) { UsageChosen(rejected); });
    TrackChanges(state,
                 {&cboRank,       &cboName1,         &cboName2,       &cboName3Rank, &txtName1,    &txtName2,
                  &txtName3,      &txtName4,         &chkHybrid1,     &chkHybrid2,   &chkHybrid3,  &chkQuad,
                  &chkUnnamed,    &cboInvalidReason, &cboCredibility, &cboCoverage,  &txtCurrency, &cboDPRank,
                  &cboParentName, &chkParentUn,      &cboAuth,        &cboAuth2});
    ConnectFields();
}

void TaxonTab::ConnectFields() {
    cboRank.OnEdit([this] { RankChosen(); });
    cboName1.OnEdit([this] { Attempt(Outside(), [this] { lists_->FillSpeciesList(); }); });
    chkHybrid3.OnEdit([this] { fields_->ChangeHybridFormula(); });
    chkQuad.OnEdit([this] { Attempt(Outside(), [this] { QuadrinomialClicked(); }); });
    // A name of the rank before is not chosen any more, though it stays as a text.
    cboDPRank.OnEdit([this] { cboParentName.SetChoice({cboParentName.Text(), 0}); });
    cboDPRank.OnDropDown([this] { OfferParentRanks(); });
    cboDPRank.OnPick([this] { ParentRankPicked(); });
    cboParentName.OnEnter([this] { RefuseWithoutParentRank(); });
    cmdParen.OnClick([this] {
        fields_->AddParentheses();
        State().RecordDirty = true;
    });
    for (Control* control : std::initializer_list<Control*>{&cboDPRank, &cboName1, &txtName1})
        control->Observe([this] { RefreshParents(); });
}

void TaxonTab::RankChosen() {
    const std::string before = std::exchange(shownRank_, cboRank.Text());
    Attempt(Outside(), [this] { fields_->SetNameFieldsForRankChange(); });
    RankShown(cboRank.Text());
    Attempt(Outside(), [&] {
        lists_->SetPRankList(cboRank.Text());
        const int species = lists_->RankIdOf("Species");
        const auto isBelow = [&](const std::string& rank) { return lists_->RankIdOf(rank) >= species; };
        if (isBelow(cboRank.Text()) && !isBelow(before)) lists_->FillGenusList();
        lists_->SetParentRankFromRank();
        lists_->FillSpeciesList();
    });
    RefreshParents();
}

void TaxonTab::QuadrinomialClicked() {
    fields_->ChangeQuadrinomial();
    if (!chkQuad.Value()) return usage_->Accept();
    const std::string usage = UpperCase(Trim(State().currentTaxon.usage));
    if (usage == UpperCase(optValid.Caption())) usage_->Reject();
}

void TaxonTab::RefuseWithoutParentRank() {
    if (!State().gDatabase) return Outside().Message("No DataSet is Open");
    if (!cboDPRank.Text().empty()) return;
    Outside().Message(
        "Rank of the Direct Parent must be entered before a pick list of Parent names can be supplied!");
    cboDPRank.TakeFocus();
}

// The list is empty for a new record; the rank that the form already shows is not chosen again.
void TaxonTab::OfferParentRanks() {
    if (cboDPRank.ListCount() != 0) return;
    Attempt(Outside(), [this] { lists_->SetPRankList(cboRank.Text()); });
}

void TaxonTab::ParentRankPicked() {
    State().RecordDirty = true;
    if (cboDPRank.Text().empty()) return;
    Attempt(Outside(), [this] { lists_->FillParentNameList(); });
}

void TaxonTab::RefreshParents() {
    cboParentName.SetTabStop(!cboDPRank.Text().empty());
    Attempt(Outside(), [this] { lists_->RefreshParents(); });
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
    usage_->Forget();
    ClearFields();
    cboDPRank.Clear();
    cboParentName.Clear();
    SetFieldsForRank();
}

void TaxonTab::ClearForNextEntry() {
    usage_->Forget();
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
    if (fields_->HasRejected()) usage_->ClearParent();
    ShowRank();
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
    ShowRank();
}

void TaxonTab::ShowRank() {
    shownRank_ = cboRank.Text();
    RankShown(shownRank_);
}

void TaxonTab::EnterParent(const std::string& rank, int rank_id, const std::string& name, int qb_id) {
    // The user has already confirmed a rank that the record's own rank does not allow.
    if (!rank.empty() && cboDPRank.FindText(rank) < 0) cboDPRank.AddItem(rank, rank_id);
    cboDPRank.SetText(rank);
    if (!rank.empty()) lists_->FillParentNameList();
    cboParentName.SetChoice({name, qb_id});
}

std::string TaxonTab::EnteredUnit(int unit) const {
    if (fields_->IsDropped(unit)) return {};
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

std::string TaxonTab::EnteredHybridAuthor() const {
    return fields_->IsHybridAuthorDropped() ? std::string() : cboAuth2.Text();
}

int TaxonTab::ChosenParent() const {
    const CurrentTaxon& taxon = State().currentTaxon;
    const std::string& name = cboParentName.Text();
    if (name.empty() || cboDPRank.Text().empty()) return 0;
    auto chosen = static_cast<int>(cboParentName.PickedData());
    const bool readsAsStored =
        taxon.parent_qb_id != 0 && name == taxon.parent_name && cboDPRank.Text() == taxon.parent_rank_name;
    if (chosen == 0 && !readsAsStored) chosen = lists_->FindParent(name);
    return chosen == taxon.parent_qb_id ? 0 : chosen;
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
    const std::string kingdom = txtKingdom.Text(), parentRank = cboDPRank.Text(), author = cboAuth.Text(),
                      hybridAuthor = cboAuth2.Text();
    const ChoiceControl::Choice parent{cboParentName.Text(), cboParentName.PickedData()};
    const bool keepsParent = cboDPRank.ListCount() > 0;
    ClearFields();
    txtKingdom.SetText(kingdom);
    cboRank.SetText(State().gPrefRank);
    SetFieldsForRank();
    optValid.SetValue(false);
    if (keepsParent) lists_->SetPRankList(State().gPrefRank);
    cboDPRank.SetText(parentRank);
    cboParentName.SetChoice(parent);
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
