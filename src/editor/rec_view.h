// The logic of the main window: its modes and commands, the selection of the record, the status panels, the
// title.
//
// It works on the controls of RecViewForm, never on widgets, and uses the tabs of the record only through
// RecordTab (core/record_tab.h). The window attaches the explorer, connects to the signals and sets the
// commands of other subsystems below. It never writes to the DataSet itself:
// RecordSave does.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/application_state.h"
#include "core/outside.h"
#include "core/signal.h"
#include "dataset/lifecycle.h"
#include "editor/editor_state.h"
#include "editor/focus_groups.h"
#include "editor/rank_step.h"
#include "editor/rec_view_form.h"
#include "editor/record_checks.h"
#include "editor/record_move.h"
#include "editor/record_save.h"
#include "navigation/explorer.h"
#include "navigation/tb_btn_mgr.h"

namespace quillon::editor {

// How the import command ended.
enum class ImportEnd { NotStarted, Canceled, Done };

class RecView {
public:
    RecView(ApplicationState& state, Prompter& prompter, ProgressDialog& progress,
            dataset::Lifecycle& lifecycle, const Clock& clock);
    ~RecView();
    RecView(const RecView&) = delete;
    RecView& operator=(const RecView&) = delete;

    RecViewForm& Controls() { return controls_; }
    EditorState& Editing() { return editing_; }

    // Connects to the events of the explorer, which must outlive the form. Call it once.
    void Attach(navigation::cExplorer& explorer);

    // Shows the DataSet of the state from its root, with a form ready for a new record. Call it when another
    // DataSet, or none, is open.
    void ShowDataSet();
    // Sets up the form for the open DataSet: an empty form ready for a new record, with its lists and words.
    // Runs after each open and after a delete.
    void StartOfDataSet();
    // Resets the form. When gPreferencesChanging is set, clears it and only applies the ranks, the words of
    // the kingdom and the reasons again. Otherwise shows the record in CurrentTaxon, or calls StartOfDataSet
    // when there is none.
    void Reset();
    // Loads the taxon of CurrentTaxon.qb_id into every tab. Failures are reported; what could not be read
    // stays empty.
    void ShowRecord();
    // Every change of the current record goes through here. With `checkDirty` the user may stay on an unsaved
    // record. The status bar shows when the name is not in the tree.
    void SelectExplorerItem(int qb_id, bool checkDirty, bool isInTree = true);
    // The command of cmdOK: checks and saves the record, and updates form, tree and list. A refused record
    // stays on the form as entered.
    void SaveCommand();
    // The command of mnuEDelete: asks, deletes the record and everything that belongs to it, and shows an
    // empty form for a new one. The node above it is selected then, but not loaded.
    void RecordDelete();
    // Moves the focus to the first unit of the name.
    void GoToName();
    // Taxa that the author clean-up changes: they join the journal, within the command that is open. Throws
    // StoreError.
    void TaxaModified(const std::vector<int>& taxa);
    // Shows taxa that were changed elsewhere as they are now: the current record, the names of tree and list.
    void ShowModified();
    // The last new record saved since the DataSet was opened; 0 for none.
    int LastSaved() const { return lastSaved_; }
    // Asks about an unsaved record. True when the user stays on it.
    bool AskLoseChanges();
    // Clears the fields that the preferences do not keep for the next new record. Runs after "addnew" and
    // after a new record has been saved.
    void ClearForNextEntry();
    // The name of the taxon under edit, from its record or from the form.
    std::string CurrentTaxonName() const { return controls_.CurrentTaxonName(); }
    // The number of rows in qb_taxonomic_units.
    std::int64_t CountTaxa() const;

    // The explorer and its list are out of date and must be rebuilt.
    Signal<> RebuildExplorer;
    // The open DataSet has been closed and opened again.
    Signal<> DataSetReopened;
    // A line for the status bar, to be shown for a while.
    Signal<const std::string&> Note;
    // The record `qb_id` stays although another one was selected: the explorer must select it again once it
    // has finished its own selection.
    Signal<int> ReselectLater;

    // Commands of other subsystems, each set once at the start of the program. The whole command of
    // mnuFImport, with its form.
    std::function<ImportEnd()> ImportCommand;
    // Closes the open DataSet before the form closes; false when the form must stay.
    std::function<bool()> StopCommand;
    // The form behind mnuAuth, after the question about an unsaved record.
    std::function<void()> AuthorEditCommand;
    // The forms behind mnuFPreferences, mnuFValidate, mnuFExport, mnuHContents and mnuHSearch; the first
    // three run only while a DataSet is open.
    std::function<void()> PreferencesCommand, ValidateCommand, ExportCommand, HelpContentsCommand,
        HelpSearchCommand;

private:
    using Move = void (navigation::cExplorer::*)();

    // The commands.
    void ConnectCommands();
    void ConnectTabs();
    void MakeToolbarManagers();
    // Runs a command that may close and reopen the DataSet; the command returns true when another one is
    // open.
    void RunAndRefresh(const std::function<bool()>& command);
    void OpenCommand();
    void NewCommand();
    void SaveAsCommand();
    void RunImport();
    void RunPreferences();
    // Runs a command that needs a DataSet, or reports that none is open.
    void WithDataSet(const std::function<void()>& command);
    // Runs a command as one action of the form, and reports its failure.
    void Guarded(const std::function<void()>& command);
    void Quit();
    void AddNew();
    void CopyRecord();

    // The save and the deletion.
    bool ConfirmRankChange();
    void SaveChanges();
    bool SaveNew();
    void NoteSaved();
    void EndSave(bool keepsEntry);
    bool DeleteStoredRecord();

    // The modes and what goes with them.
    void EnterInput();
    void EnterEdit();
    void EnterMode(EditorMode mode);
    void SetEnabled(std::string_view key, bool enabled);
    void OfferLists();
    void ReapplyPreferences();
    void ClearTabs();
    void ShowPanels(bool isInTree);

    // The explorer.
    void MoveBy(Move move);
    void MoveByRank(RankStep step);
    void Cut();
    void Paste();
    void Undo();
    void EnableMoves();
    void ReflectRealNodePosition();
    // Handles a move in the tree; true cancels it.
    bool Dropped(const navigation::TreeNode* moved, navigation::TreeNode* newParent,
                 const navigation::TreeNode* oldParent);
    bool BringUp(const navigation::cBioList& moved);

    RecordTab& TabOnShow() { return *controls_.Tabs()[static_cast<std::size_t>(tabOnShow_ - 1)]; }
    void TabClicked();
    void ShowTab(int tab);

    ApplicationState& state_;
    Prompter& prompter_;
    ProgressDialog& progress_;
    dataset::Lifecycle& lifecycle_;
    RecViewForm controls_;
    EditorState editing_;
    FocusGroups focusGroups_;
    RecordMove move_;
    RecordChecks checks_;
    RecordSave save_;
    int lastSaved_ = 0;
    // They enable the toolbar buttons; a menu item and its button are one control.
    navigation::TBBtnMgr navigation_, edit_;
    navigation::cExplorer* explorer_ = nullptr;
    int tabOnShow_ = 1;   // its place in TabStrip1
    bool asked_ = false;  // a command has already asked about the unsaved record
};

}  // namespace quillon::editor
