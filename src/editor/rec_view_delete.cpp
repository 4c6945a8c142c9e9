// The delete command of the main form, and what follows an author clean-up.
#include <fmt/format.h>

#include "core/wait_cursor.h"
#include "editor/rec_view.h"
#include "records/deletion.h"
#include "records/journal.h"
#include "store/command.h"

namespace quillon::editor {

// What a failed statement leaves is stored as it is; a lost process leaves all or nothing.
bool RecView::DeleteStoredRecord() {
    const CurrentTaxon& taxon = state_.currentTaxon;
    store::Command command(lifecycle_.Engine());
    const records::RecordStore records{lifecycle_.Engine(), *state_.gDatabase, prompter_};
    const bool isDeleted = records::DeleteTaxon(records, {taxon.qb_id, taxon.tsn, taxon.usage}, true);
    command.Commit();
    return isDeleted;
}

void RecView::RecordDelete() {
    const int qb_id = state_.currentTaxon.qb_id;
    const std::string name = CurrentTaxonName();
    if (!DeleteStoredRecord()) return;
    const WaitCursor waiting(prompter_);
    if (explorer_ != nullptr) {
        if (explorer_->IsTaxonCut(qb_id)) {
            SetEnabled("paste", false);
            SetEnabled("undo", false);
        }
        explorer_->RecordRemoved(qb_id);
    }
    StartOfDataSet();
    Note("Deleted " + name);
}

void RecView::TaxaModified(const std::vector<int>& taxa) {
    for (const int taxon : taxa) records::AddToJournal(*state_.gDatabase, taxon);
}

void RecView::ShowModified() {
    const ChangeScope scope(controls_.form);
    if (state_.currentTaxon.qb_id != 0) {
        ShowRecord();
    } else {
        for (RecordTab* tab : controls_.Tabs()) tab->RefreshLists();
    }
    if (explorer_ != nullptr) explorer_->RefreshNames();
}

}  // namespace quillon::editor
