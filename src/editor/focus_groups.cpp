#include "editor/focus_groups.h"

#include <initializer_list>
#include <string>
#include <string_view>

#include "core/text.h"
#include "core/vocabulary.h"

namespace quillon::editor {

namespace {

bool DiffersIn(std::string_view shown, std::string_view stored) {
    return UpperCase(Trim(shown)) != UpperCase(Trim(stored));
}

bool DiffersIn(const CheckControl& mark, std::string_view stored) {
    return mark.Value() != (stored == "X");
}

const std::string& TextOf(const ComboControl& list, const TextControl& field) {
    return list.Visible() ? list.Text() : field.Text();
}

}  // namespace

FocusGroups::FocusGroups(ApplicationState& state, EditorState& editing, TaxonControls& tab, Control& save)
    : state_(state), editing_(editing), tab_(tab) {
    const auto add = [this](int group, std::initializer_list<Control*> controls) {
        for (Control* control : controls) {
            control->OnEnter([this, group] { Entered(group); });
            control->OnLeave([this, group] { editing_.FieldGroupLeft = group; });
        }
    };
    add(FieldGroup::kAuthor, {&tab.cboAuth});
    add(FieldGroup::kHybridAuthor, {&tab.cboAuth2});
    add(FieldGroup::kName, {&tab.cboName1, &tab.txtName1, &tab.cboName2, &tab.txtName2, &tab.txtName3,
                            &tab.txtName4, &tab.chkHybrid1, &tab.chkHybrid2, &tab.chkHybrid3});
    add(FieldGroup::kParent, {&tab.cboParentName});
    add(FieldGroup::kRank, {&tab.cboRank});
    add(FieldGroup::kUsage, {&tab.optValid, &tab.optInvalid, &tab.cboInvalidReason});
    add(FieldGroup::kNone,
        {&tab.cboCoverage, &tab.cboCredibility, &tab.cboDPRank, &tab.chkUnnamed, &tab.txtCurrency, &save});
}

// A group is left when a field of another one is entered.
void FocusGroups::Entered(int group) {
    editing_.FieldGroupEntered = group;
    if (state_.currentTaxon.tsn == 0 || group == FieldGroup::kNone || editing_.FieldGroupLeft == group)
        return;
    if (!Differs(editing_.FieldGroupLeft)) return;
    state_.ChangeTrackApplied = false;
    editing_.FieldGroupEntered = FieldGroup::kNone;
}

bool FocusGroups::Differs(int group) const {
    const CurrentTaxon& taxon = state_.currentTaxon;
    switch (group) {
        case FieldGroup::kAuthor:
            return DiffersIn(tab_.cboAuth.Text(), taxon.taxon_author);
        case FieldGroup::kHybridAuthor:
            return DiffersIn(tab_.cboAuth2.Text(), taxon.hybrid_author);
        case FieldGroup::kName:
            return NameDiffers();
        case FieldGroup::kParent:
            return true;
        case FieldGroup::kRank:
            return DiffersIn(tab_.cboRank.Text(), taxon.rank_name);
        case FieldGroup::kUsage:
            return UsageDiffers();
        default:
            return false;
    }
}

bool FocusGroups::NameDiffers() const {
    const CurrentTaxon& taxon = state_.currentTaxon;
    return DiffersIn(TextOf(tab_.cboName1, tab_.txtName1), taxon.unit_name1) ||
           DiffersIn(TextOf(tab_.cboName2, tab_.txtName2), taxon.unit_name2) ||
           DiffersIn(tab_.txtName3.Text(), taxon.unit_name3) ||
           DiffersIn(tab_.txtName4.Text(), taxon.unit_name4) || DiffersIn(tab_.chkHybrid1, taxon.unit_ind1) ||
           DiffersIn(tab_.chkHybrid2, taxon.unit_ind2) || DiffersIn(tab_.chkHybrid3, taxon.unit_ind3);
}

bool FocusGroups::UsageDiffers() const {
    const CurrentTaxon& taxon = state_.currentTaxon;
    const KingdomFamily family = FamilyOfKingdom(state_.gKingdomName);
    std::string_view usage;
    if (tab_.optValid.Value()) usage = AcceptedUsage(family);
    if (tab_.optInvalid.Value()) usage = RejectedUsage(family);
    return DiffersIn(usage, taxon.usage) || tab_.chkParentUn.Value() != (taxon.uncertain_parent_ind != 0);
}

}  // namespace quillon::editor
