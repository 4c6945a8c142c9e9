// The rules of the main window: its modes and commands, what is shown of the chosen taxon, the status panels,
// the title.
//
// It works on the controls of RecViewForm and knows no widget. Whoever makes the window attaches the explorer
// and hangs the commands of other subsystems on through the functions below. It never writes to the DataSet
// itself.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/application_state.h"
#include "core/outside.h"
#include "dataset/lifecycle.h"
#include "editor/editor_state.h"
#include "editor/rec_view_form.h"
#include "editor/taxon_fields.h"
#include "editor/taxon_lists.h"
#include "navigation/explorer.h"
#include "navigation/tb_btn_mgr.h"

namespace quillon::editor {

// An item of the explorer as the form sees it.
struct ExplorerItem {
    int qb_id = 0;
    std::int64_t children = 0;
    std::int64_t descendants = 0;
    bool isInTree = true;
};

// How the import command ended.
enum class ImportEnd { NotStarted, Canceled, Done };

class RecView {
public:
    RecView(ApplicationState& state, Prompter& prompter, ProgressDialog& progress,
            dataset::Lifecycle& lifecycle);
    ~RecView();
    RecView(const RecView&) = delete;
    RecView& operator=(const RecView&) = delete;

    RecViewForm& Controls() { return controls_; }
    EditorState& Editing() { return editing_; }
    TaxonLists& Lists() { return lists_; }
    TaxonFields& Fields() { return fields_; }

    // Takes the events of the explorer, which must outlive the form. Once.
    void Attach(navigation::cExplorer& explorer);

    // The DataSet of the state is another one than before, or none: shows it from its root, with a form ready
    // for a new record.
    void ShowDataSet();
    // The start-of-DataSet setup: an empty form ready for a new record, with the lists and words of the open
    // DataSet; after each open and after a delete.
    void StartOfDataSet();
    // The reset of the form. While gPreferencesChanging is set, which it clears, only the ranks, the words of
    // the kingdom and the reasons are applied again; else the record in CurrentTaxon is shown, or the DataSet
    // is started when there is none.
    void Reset();
    // Loads the taxon of CurrentTaxon.qb_id into every tab. Failures of the store are told; what could not be
    // read is empty then, and the rest is shown.
    void ShowRecord();
    // The entry for every change of the current record. With `checkDirty` the user may stay on an unsaved
    // one.
    void SelectExplorerItem(const ExplorerItem& item, bool checkDirty);
    // The question about an unsaved record; true means stay where you are.
    bool AskLoseChanges();
    // The routine behind "addnew" and after a new record has been saved: what the preferences do not keep
    // goes.
    void ClearForNextEntry();
    // The name of the taxon under edit, from its record or from the form.
    std::string CurrentTaxonName() const;
    // All rows of qb_taxonomic_units of the open DataSet.
    std::int64_t CountTaxa() const;
    // Sets a panel of the status bar; a key that has no panel is ignored.
    void StatusPanelSet(std::string_view panelKey, std::string_view text);

    // Builds the explorer and its list anew.
    std::function<void()> RebuildExplorer;
    // The open DataSet has been closed and opened again.
    std::function<void()> DataSetReopened;
    // Selects the current record again, once the explorer is done with its own selection.
    std::function<void(int qb_id)> ReselectLater;
    // The whole command of mnuFImport, with its form.
    std::function<ImportEnd()> ImportCommand;
    // Closes the open DataSet before the form closes; false when the form must stay.
    std::function<bool()> StopCommand;
    // The forms behind mnuFPreferences, mnuFValidate, mnuFExport, mnuHContents and mnuHSearch; the first
    // three run only while a DataSet is open.
    std::function<void()> PreferencesCommand, ValidateCommand, ExportCommand, HelpContentsCommand,
        HelpSearchCommand;

private:
    using Move = void (navigation::cExplorer::*)();

    // The commands.
    void HangOnCommands();
    void HangOnTabs();
    void MakeToolbarManagers();
    // Runs a command that may close and reopen the DataSet; it gives true when another one is open.
    void Around(const std::function<bool()>& command);
    void OpenCommand();
    void NewCommand();
    void SaveAsCommand();
    void RunImport();
    void RunPreferences();
    // A command that needs a DataSet; without one it says so.
    void WithDataSet(const std::function<void()>& command);
    // Tells a failure of the store.
    void Guarded(const std::function<void()>& command);
    void Quit();
    void AddNew();
    void CopyRecord();

    // The modes and what goes with them.
    void EnterInput();
    void EnterEdit();
    void SetEnabled(std::string_view key, bool enabled);
    void ClearRecord();
    void StartLists();
    void ShowPreferredRank();
    void SetKingdomWords();
    void ReapplyPreferences();
    void TakePreferredRank();
    void ClearForm();
    void ClearOtherFields();
    void ClearDocumentation();
    void SetFieldsForRank();

    // The load, step by step.
    void LoadLists();
    void LoadFields();
    void LoadTabs();
    void LoadSynonymsTab();
    void LoadDocumentation();
    void FillNameLists();
    void FillSelectors();
    void ShowCounts(const ExplorerItem& item);

    // The explorer.
    void MoveBy(Move move);
    void Cut();
    void Paste();
    void Undo();
    void EnableMoves();
    void ReflectRealNodePosition();
    // The form's answer to a move in the tree; true cancels it.
    bool Dropped(const navigation::TreeNode* moved, navigation::TreeNode* newParent,
                 const navigation::TreeNode* oldParent);
    bool ConfirmRanks(const navigation::cBioList& moved, const navigation::cBioList& target);
    bool BringUp(const navigation::cBioList& moved);
    void ChangeTaxonParent(const navigation::cBioList* newParent);
    void UpdateSynonymLink(const navigation::cBioList* newAccepted, const navigation::cBioList* oldAccepted);

    void TabClicked();
    void TellTabDisabled();

    ApplicationState& state_;
    Prompter& prompter_;
    ProgressDialog& progress_;
    dataset::Lifecycle& lifecycle_;
    RecViewForm controls_;
    EditorState editing_;
    TaxonLists lists_;
    TaxonFields fields_;
    // Those of the toolbar buttons; a menu item and its button are one control here.
    navigation::TBBtnMgr navigation_, edit_;
    navigation::cExplorer* explorer_ = nullptr;
    std::string appliedRank_;  // gPrefRank as the form knows it
    bool asked_ = false;       // a command of the form has asked about the unsaved record already
};

}  // namespace quillon::editor
