// The save command of the main form: checks, the save itself, and what follows it in the form, the tree and
// the list.
#include <fmt/format.h>

#include "core/names.h"
#include "core/wait_cursor.h"
#include "editor/rec_view.h"
#include "editor/rec_view_load.h"

namespace quillon::editor {

namespace {

NameFields NameOf(const CurrentTaxon& taxon) {
    const auto unit = [](const std::string& text) { return Value::TextOrNull(text); };
    return {unit(taxon.unit_ind1), unit(taxon.unit_name1), unit(taxon.unit_ind2), unit(taxon.unit_name2),
            unit(taxon.unit_ind3), unit(taxon.unit_name3), unit(taxon.unit_ind4), unit(taxon.unit_name4)};
}

}  // namespace

void RecView::SaveCommand() {
    const ChangeScope scope(controls_.form);
    const WaitCursor waiting(prompter_);
    const int qb_id = state_.currentTaxon.qb_id;
    if (qb_id != 0 && qb_id == GetKingdomId(*state_.gDatabase)) {
        prompter_.WarningMessage("You can't modify the Kingdom record.");
        return ShowRecord();
    }
    bool keepsEntry = false;
    if (checks_.CheckFields()) {
        controls_.distribution.Collect(state_.currentTaxon);
        if (editing_.mode == EditorMode::Edit) {
            if (!ConfirmRankChange()) return;
            SaveChanges();
        } else {
            keepsEntry = !SaveNew();
        }
    }
    EndSave(keepsEntry);
}

bool RecView::ConfirmRankChange() {
    if (controls_.taxon.cboRank.Text() == controls_.taxon.rankAsLoaded) return true;
    auto query = state_.gDatabase->OpenQueryDef("Get Children");
    query.Set("parent", state_.currentTaxon.qb_id);
    if (query.OpenRecordset(store::RecordsetType::ForwardOnly)->Eof()) return true;
    return prompter_.AskBeforeLoss(
        "This record has children and you are changing the rank.  This may cause data integrity problems.  "
        "Continue?",
        "Changing Taxonomic Rank");
}

void RecView::SaveChanges() {
    save_.SaveTaxonChanges();
    const int qb_id = state_.currentTaxon.qb_id;
    LoadTaxon(state_, prompter_, qb_id);
    if (explorer_ != nullptr) explorer_->RecordChanged(qb_id);
    ShowRecord();
    controls_.name.SetCaption(CurrentTaxonName());
    NoteSaved();
}

// False when the record could not be stored; the input is then kept.
bool RecView::SaveNew() {
    if (!save_.SaveNewTaxon()) return false;
    const int qb_id = state_.currentTaxon.qb_id;
    lastSaved_ = qb_id;
    LoadTaxon(state_, prompter_, qb_id);
    NoteSaved();
    if (explorer_ != nullptr) explorer_->RecordAdded(qb_id);
    ClearForNextEntry();
    return true;
}

void RecView::NoteSaved() {
    Note("Saved " + BuildSciName(NameOf(state_.currentTaxon)));
}

// Also called for a refused record, which no longer counts as unsaved. A record whose row could not be stored
// stays unsaved.
void RecView::EndSave(bool keepsEntry) {
    for (RecordTab* tab : controls_.Tabs()) tab->RefreshLists();
    state_.RecordDirty = keepsEntry;
    state_.gNewChangeTrackIds.clear();
    controls_.taxa.SetCaption(fmt::format("TAXA: {}", CountTaxa()));
    for (const std::string_view key : {"addnew", "moveprev", "movenext"}) SetEnabled(key, true);
}

}  // namespace quillon::editor
