#include "editor/taxon_fields.h"

#include <algorithm>
#include <array>

#include "core/attempt.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "store/engine.h"

namespace quillon::editor {

namespace {

// What a rank shows, by its word in upper case. The other ranks show the first unit under their own word.
struct RankFields {
    std::string_view rank;
    std::array<std::string_view, 3> labels;
    bool genusFromList;    // cboName1 in place of txtName1
    bool epithetFromList;  // cboName2 in place of txtName2
    int hybridMarks;
    bool hasCompleteness;  // completeness and currency
};
constexpr std::array<RankFields, 10> kRankFields = {{
    {"GENUS", {"Genus", "", ""}, false, false, 1, true},
    {"SUBGENUS", {"Genus", "Subgenus", ""}, true, false, 0, false},
    {"SECTION", {"Section", "", ""}, false, false, 0, false},
    {"SUBSECTION", {"Subsection", "", ""}, false, false, 0, false},
    {"SPECIES", {"Genus", "Species", ""}, true, false, 3, false},
    {"SUBSPECIES", {"Genus", "Species", "Subspecies"}, true, true, 2, false},
    {"VARIETY", {"Genus", "Species", ""}, true, true, 2, false},
    {"SUBVARIETY", {"Genus", "Species", ""}, true, true, 2, false},
    {"FORM", {"Genus", "Species", ""}, true, true, 2, false},
    {"SUBFORM", {"Genus", "Species", ""}, true, true, 2, false},
}};
constexpr std::array<std::string_view, 19> kRanksAboveGenus = {
    "Kingdom",     "Subkingdom", "Phylum",     "Subphylum",  "Division", "Subdivision", "Superclass",
    "Class",       "Subclass",   "Infraclass", "Superorder", "Order",    "Suborder",    "Infraorder",
    "Superfamily", "Family",     "Subfamily",  "Tribe",      "Subtribe"};
constexpr std::array<std::string_view, 4> kQuadrinomialRanks = {"VARIETY", "SUBVARIETY", "FORM", "SUBFORM"};

template <typename Words>
bool Contains(const Words& words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

std::string WordOf(std::string_view rank) {
    return UpperCase(Trim(rank));
}

}  // namespace

TaxonFields::TaxonFields(ApplicationState& state, Prompter& prompter, TaxonControls& tab, TaxonLists& lists)
    : state_(state), prompter_(prompter), tab_(tab), lists_(lists) {}

void TaxonFields::SetFieldsForRank() {
    const ChangeScope scope(tab_.form);
    const std::string rank = WordOf(tab_.cboRank.Text());
    HideAll();
    ShowNames(rank);
    ShowLabels();
    if (!Contains(kQuadrinomialRanks, rank)) return;
    if (!state_.currentTaxon.unit_name4.empty()) tab_.chkQuad.SetValue(true);
    ApplyQuadrinomialRule();
    ShowLabels();
}

// A label without a text takes no room.
void TaxonFields::ShowLabels() {
    for (LabelControl* label :
         {&tab_.lblName1, &tab_.lblName2, &tab_.lblName3, &tab_.lblName4, &tab_.lblHybridAuthority}) {
        label->SetVisible(!label->Caption().empty());
    }
}

void TaxonFields::HideAll() {
    for (LabelControl* label : {&tab_.lblName1, &tab_.lblName2, &tab_.lblName3, &tab_.lblName4})
        label->SetCaption("");
    SetHybridFormula(false);
    for (Control* field : std::initializer_list<Control*>{
             &tab_.cboName1, &tab_.txtName1, &tab_.cboName2, &tab_.txtName2, &tab_.txtName3, &tab_.txtName4,
             &tab_.lblHybrid, &tab_.chkHybrid1, &tab_.chkHybrid2, &tab_.chkHybrid3, &tab_.chkQuad,
             &tab_.cboName3Rank, &tab_.cmdParen}) {
        field->SetVisible(false);
    }
    for (Control* field :
         std::initializer_list<Control*>{&tab_.lblCurrency, &tab_.lblComplete, &tab_.lblCredible,
                                         &tab_.txtCurrency, &tab_.cboCoverage, &tab_.cboCredibility}) {
        field->SetVisible(true);
    }
    for (CheckControl* check : {&tab_.chkHybrid1, &tab_.chkHybrid2, &tab_.chkHybrid3, &tab_.chkQuad})
        check->SetValue(false);
}

void TaxonFields::ShowNames(std::string_view rank) {
    const auto fields = std::find_if(kRankFields.begin(), kRankFields.end(),
                                     [&](const RankFields& row) { return row.rank == rank; });
    if (fields == kRankFields.end()) {
        const auto above = std::find_if(kRanksAboveGenus.begin(), kRanksAboveGenus.end(),
                                        [&](std::string_view word) { return UpperCase(word) == rank; });
        if (above == kRanksAboveGenus.end()) return;
        tab_.lblName1.SetCaption(*above);
        return tab_.txtName1.SetVisible(true);
    }
    tab_.lblName1.SetCaption(fields->labels[0]);
    tab_.lblName2.SetCaption(fields->labels[1]);
    tab_.lblName3.SetCaption(fields->labels[2]);
    tab_.cboName1.SetVisible(fields->genusFromList);
    tab_.txtName1.SetVisible(!fields->genusFromList);
    tab_.cboName2.SetVisible(fields->epithetFromList);
    tab_.txtName2.SetVisible(!fields->labels[1].empty() && !fields->epithetFromList);
    tab_.txtName3.SetVisible(fields->epithetFromList);
    tab_.cmdParen.SetVisible(fields->labels[1] == "Subgenus");
    tab_.lblHybrid.SetVisible(fields->hybridMarks > 0);
    tab_.chkHybrid1.SetVisible(fields->hybridMarks > 0);
    tab_.chkHybrid2.SetVisible(fields->hybridMarks > 1);
    tab_.chkHybrid3.SetVisible(fields->hybridMarks > 2);
    if (!fields->hasCompleteness) HideRatings();
}

void TaxonFields::HideRatings() {
    for (Control* field : std::initializer_list<Control*>{&tab_.lblCurrency, &tab_.lblComplete,
                                                          &tab_.txtCurrency, &tab_.cboCoverage}) {
        field->SetVisible(false);
    }
    tab_.txtCurrency.SetText("");
    tab_.cboCoverage.SetText("");
}

// A hybrid formula names a second genus and species, and has a second author.
void TaxonFields::SetHybridFormula(bool on) {
    tab_.lblHybridAuthority.SetCaption(on ? "Hybrid Author" : "");
    tab_.cboAuth2.SetVisible(on);
    tab_.txtName3.SetVisible(on);
    tab_.txtName4.SetVisible(on);
    if (!on) return;
    tab_.lblName3.SetCaption("Genus");
    tab_.lblName4.SetCaption("Species");
    ShowLabels();
}

void TaxonFields::ApplyQuadrinomialRule() {
    tab_.lblName3.SetCaption(tab_.cboRank.Text());
    tab_.lblName4.SetCaption("");
    tab_.txtName4.SetVisible(false);
    tab_.optValid.SetEnabled(true);
    tab_.chkQuad.SetVisible(true);
    tab_.chkQuad.SetEnabled(!EqualText(state_.currentTaxon.parent_rank_name, "Kingdom") &&
                            state_.currentTaxon.tsn == 0);
    if (tab_.chkQuad.Value()) return ShowQuadrinomial();
    tab_.optValid.SetValue(true);
    tab_.cboName3Rank.SetVisible(false);
}

void TaxonFields::ShowQuadrinomial() {
    tab_.lblName4.SetCaption(tab_.cboRank.Text());
    tab_.txtName4.SetVisible(true);
    tab_.cboName3Rank.SetVisible(true);
    tab_.cboName3Rank.SetTexts(lists_.GetRanksBetween("Species", tab_.cboRank.Text()));
    const std::string_view thirdRank = GetRankFromIndicator(state_.currentTaxon.unit_ind3);
    if (!thirdRank.empty()) tab_.cboName3Rank.SetText(thirdRank);
    if (UpperCase(Trim(state_.currentTaxon.usage)) == UpperCase(tab_.optValid.Caption()))
        RejectAcceptedQuadrinomial();
}

void TaxonFields::RejectAcceptedQuadrinomial() {
    if (state_.currentTaxon.tsn != 0) {
        prompter_.Message(
            "This quadrinomial name has been downloaded from the\n"
            "ORVA Online database with Usage = Accepted.  If you wish to export this\n"
            "record for updating the Online database, note that the Usage has\n"
            "changed to Not Accepted; identify an unacceptability reason, associate it\n"
            "with an Accepted name, and press Save Changes.");
    }
    state_.currentTaxon.usage = LowerCase(tab_.optInvalid.Caption());
    state_.RecordDirty = true;
    tab_.optInvalid.SetValue(true);
}

void TaxonFields::AddParentheses() {
    std::string name(Trim(tab_.txtName2.Text()));
    if (name.empty() || name.front() != '(') name.insert(0, 1, '(');
    if (name.size() < 2 || name.back() != ')') name += ')';
    tab_.txtName2.SetText(name);
}

void TaxonFields::SetUsageCaptions() {
    const bool plant = FamilyOfKingdom(state_.gKingdomName) == KingdomFamily::Plant;
    tab_.fraUsage.SetCaption(plant ? "Accepted Name" : "Valid Name");
    tab_.optValid.SetCaption(plant ? "Accepted" : "Valid");
    tab_.optInvalid.SetCaption(plant ? "Not Accepted" : "Invalid");
}

void TaxonFields::ShowUnnamed() {
    const bool plant = FamilyOfKingdom(state_.gKingdomName) == KingdomFamily::Plant;
    tab_.lblUnnamed.SetVisible(plant);
    tab_.chkUnnamed.SetVisible(plant);
}

// The rank comes first, because it hides and empties fields that are filled from the record below.
void TaxonFields::ShowTaxon() {
    const ChangeScope scope(tab_.form);
    const CurrentTaxon& taxon = state_.currentTaxon;
    tab_.cboRank.SetText(taxon.rank_name);
    Attempt(prompter_, [this] { SetFieldsForRank(); });
    Attempt(prompter_, [&] { lists_.SetPRankList(taxon.rank_name); });
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
    tab_.chkUnnamed.SetValue(taxon.unnamed_taxon_ind == "Yes");
    ShowUsage();
    ShowStatus();
    Attempt(prompter_, [this] { lists_.OfferParents(); });
    Attempt(prompter_, [this] { ShowKingdom(); });
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
    tab_.chkParentUn.SetValue(taxon.uncertain_parent_ind == -1);
    if (!taxon.parent_rank_name.empty()) tab_.cboDPRank.SetText(taxon.parent_rank_name);
    tab_.cboParentName.SetText(taxon.parent_name);
    tab_.cboAuth.SetText(taxon.taxon_author);
    tab_.cboAuth2.SetText(taxon.hybrid_author);
}

void TaxonFields::ShowKingdom() {
    tab_.txtKingdom.SetText("");
    if (!state_.gDatabase) return;
    auto query = state_.gDatabase->OpenQueryDef("Get Kingdom Name");
    const auto row = query.Set("kingid", state_.currentTaxon.kingdom_id).CreateSnapshot();
    if (!row->Eof()) tab_.txtKingdom.SetText(row->At(0).AsText());
}

}  // namespace quillon::editor
