// Shows a record: from a qb_id to a form in which every tab shows that taxon.
#include <fmt/format.h>

#include "core/attempt.h"
#include "editor/rec_view.h"
#include "editor/rec_view_load.h"

namespace quillon::editor {

void RecView::SelectExplorerItem(int qb_id, bool checkDirty, bool isInTree) {
    editing_.FieldGroupLeft = 0;
    if (qb_id == state_.currentTaxon.qb_id || !state_.gDataSetOpen) return;
    const ChangeScope scope(controls_.form);
    if (checkDirty && AskLoseChanges()) return ReselectLater(state_.currentTaxon.qb_id);
    state_.currentTaxon.qb_id = qb_id;
    ShowRecord();
    editing_.dropInProgress = false;
    for (const std::string_view key : {"addnew", "cut", "copy"}) SetEnabled(key, true);
    EnableMoves();
    ShowPanels(isInTree);
    TabOnShow().Shown();
}

// Everything is emptied first and each step reports its own failure, so that no value of the previous record
// is left on the form.
void RecView::ShowRecord() {
    const ChangeScope scope(controls_.form);
    ClearRecordVariables(state_);
    ClearTabs();
    EnterEdit();
    Guarded([this] { LoadTaxon(state_, prompter_, state_.currentTaxon.qb_id); });
    editing_.FieldGroupEntered = editing_.FieldGroupLeft = 0;
    for (RecordTab* tab : controls_.Tabs()) tab->Load(state_.currentTaxon.qb_id);
    state_.RecordDirty = false;
    state_.gNewChangeTrackIds.clear();
}

void RecView::ShowPanels(bool isInTree) {
    controls_.name.SetCaption(CurrentTaxonName() + (isInTree ? "" : " (not in the tree)"));
    Guarded([this] { controls_.taxa.SetCaption(fmt::format("TAXA: {}", CountTaxa())); });
}

}  // namespace quillon::editor
