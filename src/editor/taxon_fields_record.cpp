// CurrentTaxon in the fields of the taxon tab.
#include "core/attempt.h"
#include "core/vocabulary.h"
#include "editor/taxon_fields.h"
#include "store/engine.h"

namespace quillon::editor {

namespace {

// A stored word that the list does not have is shown and written back all the same.
void ShowWord(ComboControl& list, const std::string& word) {
    if (!word.empty() && list.FindText(word) < 0) list.AddItem(word);
    list.SetText(word);
}

}  // namespace

// The rank comes first, because it hides and empties fields that are filled from the record below.
void TaxonFields::ShowTaxon() {
    const ChangeScope scope(tab_.form);
    ShowWord(tab_.cboRank, state_.currentTaxon.rank_name);
    Attempt(prompter_, [this] { SetFieldsForRank(); });
    Attempt(prompter_, [this] { lists_.SetPRankList(state_.currentTaxon.rank_name); });
    ShowName();
    ShowUsage();
    ShowStatus();
    ShowParent();
    Attempt(prompter_, [this] { lists_.OfferParents(); });
    Attempt(prompter_, [this] { ShowKingdom(); });
}

void TaxonFields::ShowName() {
    const CurrentTaxon& taxon = state_.currentTaxon;
    tab_.cboName1.SetText(taxon.unit_name1);
    tab_.txtName1.SetText(taxon.unit_name1);
    tab_.cboName2.SetText(taxon.unit_name2);
    tab_.txtName2.SetText(taxon.unit_name2);
    tab_.txtTSN.SetText(std::to_string(taxon.tsn));
    tab_.txtName3.SetText(taxon.unit_name3);
    tab_.txtName4.SetText(taxon.unit_name4);
    tab_.chkHybrid1.SetValue(taxon.unit_ind1 == "X");
    tab_.chkHybrid2.SetValue(taxon.unit_ind2 == "X");
    tab_.chkHybrid3.SetValue(taxon.unit_ind3 == "X");
    if (tab_.chkHybrid3.Value()) SetHybridFormula(true);
    ShowLabels();
    tab_.chkUnnamed.SetValue(taxon.unnamed_taxon_ind == "Yes");
}

void TaxonFields::ShowUsage() {
    const CurrentTaxon& taxon = state_.currentTaxon;
    const bool rejected = UsageIsInvalid(taxon.usage);
    tab_.optValid.SetValue(UsageIsAccepted(taxon.usage));
    tab_.optInvalid.SetValue(rejected);
    tab_.cboInvalidReason.SetText(rejected ? taxon.unacceptability_reason : " ");
}

void TaxonFields::ShowStatus() {
    const CurrentTaxon& taxon = state_.currentTaxon;
    tab_.cboCredibility.SetText(taxon.taxonomic_credibility_rating);
    tab_.cboCoverage.SetText(taxon.taxonomic_completeness_rating);
    tab_.txtCurrency.SetText(taxon.currency_rating);
    tab_.cboAuth.SetText(taxon.taxon_author);
    tab_.cboAuth2.SetText(taxon.hybrid_author);
}

void TaxonFields::ShowParent() {
    const CurrentTaxon& taxon = state_.currentTaxon;
    tab_.chkParentUn.SetValue(taxon.uncertain_parent_ind == -1);
    ShowWord(tab_.cboDPRank, taxon.parent_rank_name);
    tab_.cboParentName.SetChoice({taxon.parent_name, taxon.parent_qb_id});
}

void TaxonFields::ShowKingdom() {
    tab_.txtKingdom.SetText("");
    if (!state_.gDatabase) return;
    auto query = state_.gDatabase->OpenQueryDef("Get Kingdom Name");
    const auto row = query.Set("kingid", state_.currentTaxon.kingdom_id).CreateSnapshot();
    if (!row->Eof()) tab_.txtKingdom.SetText(row->At(0).AsText());
}

}  // namespace quillon::editor
