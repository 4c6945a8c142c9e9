// The modes of the editor: the start of a DataSet, a new record, a copy, and what goes with each.
#include <fmt/format.h>

#include <span>
#include <utility>

#include "core/wait_cursor.h"
#include "editor/rec_view.h"
#include "editor/rec_view_load.h"

namespace quillon::editor {

namespace {

std::string_view WordOf(EditorMode mode) {
    switch (mode) {
        case EditorMode::Input:
            return "INPUT";
        case EditorMode::Edit:
            return "EDIT";
        case EditorMode::None:
            break;
    }
    return "";
}

}  // namespace

void RecView::SetEnabled(std::string_view key, bool enabled) {
    navigation_.ChangeStateTo(key, enabled);
    edit_.ChangeStateTo(key, enabled);
}

void RecView::MakeToolbarManagers() {
    const auto buttons = [this](std::span<const std::string_view> keys) {
        navigation::TBBtnMgr::Toolbar toolbar;
        for (const std::string_view key : keys) toolbar.emplace(key, controls_.OfKey(key));
        return toolbar;
    };
    navigation_.Init(buttons(navigation::kNavigationKeys), navigation::kNavigationKeys, true);
    edit_.Init(buttons(navigation::kEditKeys), navigation::kEditKeys, true);
    for (const std::string_view key : {"paste", "undo"}) edit_.Disable(key);
}

void RecView::EnterMode(EditorMode mode) {
    editing_.mode = mode;
    controls_.mode.SetCaption(WordOf(mode));
    for (RecordTab* tab : controls_.Tabs()) tab->EnterMode(mode);
}

void RecView::EnterInput() {
    controls_.cmdOK.SetCaption("&Save");
    EnterMode(EditorMode::Input);
}

void RecView::EnterEdit() {
    controls_.cmdOK.SetCaption("&Save Changes");
    EnterMode(EditorMode::Edit);
    for (const std::string_view key : {"addnew", "moveprev", "movenext", "delete"}) SetEnabled(key, true);
}

void RecView::ShowDataSet() {
    const ChangeScope scope(controls_.form);
    const WaitCursor waiting(prompter_);
    if (state_.gDataSetOpen) {
        progress_.NewTask("Loading Taxon Data");
        progress_.SetStatus("Loading...");
    }
    StartOfDataSet();
    lastSaved_ = 0;
    SetEnabled("paste", false);
    SetEnabled("undo", false);
    Guarded([this] { RebuildExplorer(); });
    if (state_.gDataSetOpen) progress_.EndTask();
}

void RecView::StartOfDataSet() {
    const ChangeScope scope(controls_.form);
    state_.currentTaxon = CurrentTaxon();
    ClearTabs();
    controls_.form.SetTitle(state_.gDataSetOpen
                                ? dataset::TitleOf(state_.gDataSetPath, state_.gDatabase->IsReadOnly())
                                : std::string(dataset::kTitleNoDataSet));
    EnterInput();
    controls_.name.SetCaption("");
    controls_.taxa.SetCaption("");
    if (state_.gDataSetOpen) OfferLists();
    if (!state_.gDataSetOpen) EnterMode(EditorMode::None);
    for (const std::string_view key : {"cut", "copy", "delete", "addnew", "moveprev", "movenext"})
        SetEnabled(key, true);
    editing_.firstWarning = true;
    state_.RecordDirty = false;
    state_.gNewChangeTrackIds.clear();
}

void RecView::OfferLists() {
    Guarded([this] {
        lifecycle_.ReadKingdomAndRanks();
        for (RecordTab* tab : controls_.Tabs()) tab->OfferLists();
        controls_.taxa.SetCaption(fmt::format("TAXA: {}", CountTaxa()));
    });
}

void RecView::Reset() {
    if (std::exchange(state_.gPreferencesChanging, false)) return ReapplyPreferences();
    if (state_.gDataSetOpen && state_.currentTaxon.qb_id != 0) return ShowRecord();
    StartOfDataSet();
}

void RecView::ReapplyPreferences() {
    const ChangeScope scope(controls_.form);
    Guarded([this] {
        if (state_.gDataSetOpen) lifecycle_.ReadKingdomAndRanks();
    });
    for (RecordTab* tab : controls_.Tabs()) tab->ApplyPreferences(editing_.mode);
}

void RecView::ClearTabs() {
    for (RecordTab* tab : controls_.Tabs()) tab->Clear();
}

void RecView::AddNew() {
    if (AskLoseChanges()) return;
    ClearForNextEntry();
    EnterInput();
    editing_.dropInProgress = false;
}

void RecView::CopyRecord() {
    if (AskLoseChanges()) return;
    state_.currentTaxon.qb_id = 0;
    state_.currentTaxon.tsn = 0;
    EnterInput();
    for (const std::string_view key :
         {"cut", "copy", "paste", "undo", "delete", "addnew", "moveprev", "movenext"}) {
        SetEnabled(key, false);
    }
}

void RecView::ClearForNextEntry() {
    const ChangeScope scope(controls_.form);
    ClearRecordVariables(state_);
    for (RecordTab* tab : controls_.Tabs()) tab->ClearForNextEntry();
    state_.currentTaxon.qb_id = 0;
    state_.RecordDirty = false;
    state_.gNewChangeTrackIds.clear();
}

}  // namespace quillon::editor
