#include "editor/usage_switch.h"

#include "core/attempt.h"
#include "store/engine.h"

namespace quillon::editor {

UsageSwitch::UsageSwitch(ApplicationState& state, Prompter& prompter, TaxonControls& tab)
    : state_(state), prompter_(prompter), tab_(tab) {
    tab_.optInvalid.OnChoosing([this] { return MayBeRejected(); });
    tab_.optInvalid.OnEdit([this] { BecomeRejected(); });
    tab_.optValid.OnEdit([this] { BecomeAccepted(); });
}

void UsageSwitch::Reject() {
    if (tab_.optInvalid.Value() || !MayBeRejected()) return;
    const ChangeScope scope(tab_.form);
    tab_.optInvalid.SetValue(true);
    BecomeRejected();
}

void UsageSwitch::Accept() {
    if (tab_.optValid.Value()) return;
    const ChangeScope scope(tab_.form);
    tab_.optValid.SetValue(true);
    BecomeAccepted();
}

bool UsageSwitch::MayBeRejected() {
    if (!state_.gDatabase || state_.currentTaxon.qb_id == 0) return true;
    bool hasChildren = false;
    const bool isRead = Attempt(prompter_, [&] {
        auto query = state_.gDatabase->OpenQueryDef("Get Children");
        query.Set("parent", state_.currentTaxon.qb_id);
        hasChildren = !query.OpenRecordset(store::RecordsetType::ForwardOnly)->Eof();
    });
    if (!hasChildren) return isRead;
    prompter_.Message("This record has children and you cannot change the usage to invalid/not accepted!");
    return false;
}

void UsageSwitch::BecomeRejected() {
    state_.RecordDirty = true;
    Changed(true);
    ClearParent();
}

void UsageSwitch::ClearParent() {
    CurrentTaxon& taxon = state_.currentTaxon;
    cleared_ = {{tab_.cboParentName.Text(), tab_.cboParentName.PickedData()},
                taxon.parent_name,
                taxon.parent_rank_name,
                taxon.parent_tsn,
                taxon.parent_qb_id,
                taxon.direct_parent_rank_id,
                taxon.required_parent_rank_id};
    tab_.cboParentName.SetText("");
    taxon.parent_name.clear();
    taxon.parent_rank_name.clear();
    taxon.parent_tsn = taxon.parent_qb_id = 0;
    taxon.direct_parent_rank_id = taxon.required_parent_rank_id = 0;
}

void UsageSwitch::BecomeAccepted() {
    state_.RecordDirty = true;
    tab_.cboInvalidReason.SetText("");
    Changed(false);
    if (!cleared_) return;
    CurrentTaxon& taxon = state_.currentTaxon;
    if (tab_.cboParentName.Text().empty()) tab_.cboParentName.SetChoice(cleared_->shown);
    taxon.parent_name = cleared_->name;
    taxon.parent_rank_name = cleared_->rankName;
    taxon.parent_tsn = cleared_->tsn;
    taxon.parent_qb_id = cleared_->qb_id;
    taxon.direct_parent_rank_id = cleared_->direct_parent_rank_id;
    taxon.required_parent_rank_id = cleared_->required_parent_rank_id;
    cleared_.reset();
}

}  // namespace quillon::editor
