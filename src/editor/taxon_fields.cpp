// The fields of a rank, a hybrid formula and a quadrinomial.
#include "editor/taxon_fields.h"

#include <initializer_list>
#include <string>

#include "core/text.h"
#include "core/vocabulary.h"

namespace quillon::editor {

TaxonFields::TaxonFields(ApplicationState& state, Prompter& prompter, TaxonControls& tab, TaxonLists& lists)
    : state_(state), prompter_(prompter), tab_(tab), lists_(lists) {}

void TaxonFields::SetFieldsForRank() {
    const ChangeScope scope(tab_.form);
    const RankFields* fields = FieldsOfRank(tab_.cboRank.Text());
    dropped_ = {};
    rejected_ = false;
    HideAll();
    TurnMarksOff();
    ShowNames(fields);
    if (fields != nullptr && fields->mayBeQuadrinomial) {
        if (!state_.currentTaxon.unit_name4.empty()) tab_.chkQuad.SetValue(true);
        ShowTrinomial();
        if (tab_.chkQuad.Value()) {
            ShowQuadrinomial();
            RejectAcceptedQuadrinomial();
        } else {
            tab_.optValid.SetValue(true);
        }
    }
    ShowLabels();
}

void TaxonFields::SetNameFieldsForRankChange() {
    const ChangeScope scope(tab_.form);
    const RankFields* fields = FieldsOfRank(tab_.cboRank.Text());
    const Parts before = ShownParts();
    const std::initializer_list<CheckControl*> marks = {&tab_.chkHybrid1, &tab_.chkHybrid2, &tab_.chkHybrid3,
                                                        &tab_.chkQuad};
    const bool hadQuadrinomial = tab_.chkQuad.Visible(), hadFormula = tab_.chkHybrid3.Value();
    std::vector<CheckControl*> shownMarks;
    for (CheckControl* mark : marks)
        if (mark->Visible()) shownMarks.push_back(mark);
    HideAll();
    ShowNames(fields);
    if (fields != nullptr && fields->mayBeQuadrinomial) {
        if (!hadQuadrinomial && !state_.currentTaxon.unit_name4.empty()) tab_.chkQuad.SetValue(true);
        ShowTrinomial();
        if (tab_.chkQuad.Value()) ShowQuadrinomial();
    }
    for (CheckControl* mark : shownMarks)
        if (!mark->Visible()) mark->SetValue(false);
    if (hadFormula) tab_.chkHybrid3.SetValue(tab_.chkHybrid3.Visible());
    if (tab_.chkHybrid3.Value()) SetHybridFormula(true);
    // The second genus of a formula is no epithet of the new rank.
    if (hadFormula && !tab_.chkHybrid3.Value() && tab_.txtName3.Visible()) tab_.txtName3.SetText("");
    ShowLabels();
    DropHidden(before);
}

void TaxonFields::ChangeHybridFormula() {
    const ChangeScope scope(tab_.form);
    const Parts before = ShownParts();
    SetHybridFormula(tab_.chkHybrid3.Value());
    ShowLabels();
    DropHidden(before);
}

void TaxonFields::ChangeQuadrinomial() {
    const ChangeScope scope(tab_.form);
    const Parts before = ShownParts();
    TextControl &from = tab_.chkQuad.Value() ? tab_.txtName3 : tab_.txtName4,
                &to = tab_.chkQuad.Value() ? tab_.txtName4 : tab_.txtName3;
    to.SetText(from.Text());
    from.SetText("");
    ShowTrinomial();
    if (tab_.chkQuad.Value()) ShowQuadrinomial();
    ShowLabels();
    DropHidden(before);
}

TaxonFields::Parts TaxonFields::ShownParts() const {
    return {tab_.cboName1.Visible() || tab_.txtName1.Visible(),
            tab_.cboName2.Visible() || tab_.txtName2.Visible(), tab_.txtName3.Visible(),
            tab_.txtName4.Visible(), tab_.cboAuth2.Visible()};
}

void TaxonFields::DropHidden(const Parts& before) {
    const Parts now = ShownParts();
    for (std::size_t i = 0; i < now.size(); ++i)
        if (now[i] != before[i]) dropped_[i] = before[i];
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
}

void TaxonFields::TurnMarksOff() {
    for (CheckControl* check : {&tab_.chkHybrid1, &tab_.chkHybrid2, &tab_.chkHybrid3, &tab_.chkQuad})
        check->SetValue(false);
}

void TaxonFields::ShowNames(const RankFields* fields) {
    if (fields == nullptr) return;
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
    tab_.lblName3.SetCaption(on ? "Genus" : "");
    tab_.lblName4.SetCaption(on ? "Species" : "");
}

// What the ranks that may be quadrinomials have, with chkQuad off.
void TaxonFields::ShowTrinomial() {
    tab_.lblName3.SetCaption(tab_.cboRank.Text());
    tab_.lblName4.SetCaption("");
    tab_.txtName4.SetVisible(false);
    tab_.cboName3Rank.SetVisible(false);
    tab_.optValid.SetEnabled(true);
    tab_.chkQuad.SetVisible(true);
    tab_.chkQuad.SetEnabled(!EqualText(state_.currentTaxon.parent_rank_name, "Kingdom") &&
                            state_.currentTaxon.tsn == 0);
}

void TaxonFields::ShowQuadrinomial() {
    tab_.lblName4.SetCaption(tab_.cboRank.Text());
    tab_.txtName4.SetVisible(true);
    tab_.cboName3Rank.SetVisible(true);
    tab_.cboName3Rank.SetTexts(lists_.GetRanksBetween("Species", tab_.cboRank.Text()));
    const std::string_view thirdRank = GetRankFromIndicator(state_.currentTaxon.unit_ind3);
    if (!thirdRank.empty()) tab_.cboName3Rank.SetText(thirdRank);
}

// A quadrinomial cannot stay accepted.
void TaxonFields::RejectAcceptedQuadrinomial() {
    if (UpperCase(Trim(state_.currentTaxon.usage)) != UpperCase(tab_.optValid.Caption())) return;
    if (state_.currentTaxon.tsn != 0) {
        prompter_.Message(
            "This quadrinomial name has been downloaded from the\n"
            "ORVA Online database with Usage = Accepted.  If you wish to export this\n"
            "record for updating the Online database, note that the Usage has\n"
            "changed to Not Accepted; identify an unacceptability reason, associate it\n"
            "with an Accepted name, and press Save Changes.");
    }
    rejected_ = true;
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

}  // namespace quillon::editor
