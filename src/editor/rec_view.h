// The rules of the main window: its commands, what is shown of the chosen taxon, the status panels, the
// title.
//
// It works on the controls of RecViewForm and knows no widget. The explorer and the import stand beside it:
// whoever makes the window hangs them on through the functions below.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/application_state.h"
#include "core/outside.h"
#include "editor/rec_view_form.h"
#include "store/lifecycle/lifecycle.h"

namespace quillon::editor {

// An item of the explorer as the form sees it.
struct ExplorerItem {
    int qb_id = 0;
    std::int64_t children = 0;
    std::int64_t descendants = 0;
};

// How the import command ended.
enum class ImportEnd { NotStarted, Canceled, Done };

class RecView {
public:
    RecView(ApplicationState& state, Prompter& prompter, ProgressDialog& progress,
            store::Lifecycle& lifecycle);

    RecViewForm& Controls() { return controls_; }

    // The DataSet of the state is another one than before, or none: shows it from its root, with a form ready
    // for a new record.
    void ShowDataSet();
    // The entry for every change of the current record. With `checkDirty` the user may stay on an unsaved
    // one.
    void SelectExplorerItem(const ExplorerItem& item, bool checkDirty);
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

private:
    void HangOnCommands();
    // Runs a command that may close and reopen the DataSet; it gives true when another one is open.
    void Around(const std::function<bool()>& command);
    void OpenCommand();
    void NewCommand();
    void SaveAsCommand();
    void RunImport();
    void Quit();
    void ResetForm();
    void ClearFields();
    void ShowRecord();
    void ShowCounts(const ExplorerItem& item);
    void TabClicked();
    void TellTabDisabled();
    int CountTaxa() const;

    ApplicationState& state_;
    Prompter& prompter_;
    ProgressDialog& progress_;
    store::Lifecycle& lifecycle_;
    RecViewForm controls_;
};

}  // namespace quillon::editor
