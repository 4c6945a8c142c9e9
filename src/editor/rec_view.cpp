#include "editor/rec_view.h"

#include <utility>

#include "core/attempt.h"

namespace quillon::editor {

namespace {

constexpr std::string_view kNoDataSet = "No DataSet is Open";

}  // namespace

RecView::RecView(ApplicationState& state, Prompter& prompter, ProgressDialog& progress,
                 dataset::Lifecycle& lifecycle)
    : state_(state),
      prompter_(prompter),
      progress_(progress),
      lifecycle_(lifecycle),
      move_(state, prompter, controls_) {
    lifecycle_.RecordDiscarded = [this] { Guarded([this] { ReflectRealNodePosition(); }); };
    MakeToolbarManagers();
    ConnectCommands();
    ConnectTabs();
    StartOfDataSet();
}

RecView::~RecView() {
    lifecycle_.RecordDiscarded = nullptr;
}

void RecView::ConnectCommands() {
    controls_.mnuFOpen.OnClick([this] { OpenCommand(); });
    controls_.mnuFNew.OnClick([this] { NewCommand(); });
    controls_.mnuFSaveAs.OnClick([this] { SaveAsCommand(); });
    controls_.mnuFImport.OnClick([this] { RunImport(); });
    controls_.mnuFValidate.OnClick([this] { WithDataSet(ValidateCommand); });
    controls_.mnuFExport.OnClick([this] { WithDataSet(ExportCommand); });
    controls_.mnuFPreferences.OnClick([this] { RunPreferences(); });
    controls_.mnuFQuit.OnClick([this] { Quit(); });
    controls_.mnuAdd.OnClick([this] { WithDataSet([this] { AddNew(); }); });
    controls_.mnuCopy.OnClick([this] { WithDataSet([this] { CopyRecord(); }); });
    controls_.mnuECut.OnClick([this] { WithDataSet([this] { Cut(); }); });
    controls_.mnuPaste.OnClick([this] { WithDataSet([this] { Paste(); }); });
    controls_.mnuEUndo.OnClick([this] { WithDataSet([this] { Undo(); }); });
    controls_.mnuParent.OnClick([this] { MoveBy(&navigation::cExplorer::MoveParent); });
    controls_.mnuFirst.OnClick([this] { MoveBy(&navigation::cExplorer::MoveFirst); });
    controls_.mnuPrev.OnClick([this] { MoveBy(&navigation::cExplorer::MovePrev); });
    controls_.mnuNext.OnClick([this] { MoveBy(&navigation::cExplorer::MoveNext); });
    controls_.mnuLast.OnClick([this] { MoveBy(&navigation::cExplorer::MoveLast); });
    controls_.mnuHContents.OnClick([this] {
        if (HelpContentsCommand) HelpContentsCommand();
    });
    controls_.mnuHSearch.OnClick([this] {
        if (HelpSearchCommand) HelpSearchCommand();
    });
    controls_.mnuHAbout.OnClick([this] { prompter_.ShowModal("FrmAbout"); });
    controls_.form.OnUserClose([this] { Quit(); });
}

void RecView::ConnectTabs() {
    for (RecordTab* tab : controls_.Tabs()) tab->Connect(state_, prompter_);
    controls_.TabStrip1.OnEdit([this] { TabClicked(); });
}

void RecView::RunAndRefresh(const std::function<bool()>& command) {
    const auto before = state_.gDatabase;
    if (command()) return ShowDataSet();
    if (!state_.gDatabase && before) return ShowDataSet();
    if (state_.gDatabase != before) DataSetReopened();
}

void RecView::WithDataSet(const std::function<void()>& command) {
    if (!state_.gDataSetOpen) return prompter_.Message(kNoDataSet);
    if (command) Guarded(command);
}

void RecView::Guarded(const std::function<void()>& command) {
    const ChangeScope scope(controls_.form);
    Attempt(prompter_, command);
}

void RecView::OpenCommand() {
    const bool wasDirty = state_.RecordDirty;
    bool opened = false;
    RunAndRefresh([&] { return opened = lifecycle_.OpenDataSet(); });
    // The changes were given up for a file that was refused: the form shows again what is stored.
    if (!opened && wasDirty && !state_.RecordDirty) Reset();
}

void RecView::NewCommand() {
    RunAndRefresh([this] { return lifecycle_.NewDataSet(); });
}

void RecView::SaveAsCommand() {
    WithDataSet([this] {
        RunAndRefresh([this] {
            lifecycle_.SaveDataSetAs();
            return false;
        });
    });
}

void RecView::RunImport() {
    const ImportEnd end = ImportCommand ? ImportCommand() : ImportEnd::NotStarted;
    if (end != ImportEnd::Done) return;
    RebuildExplorer();
    StartOfDataSet();
}

void RecView::RunPreferences() {
    if (!state_.gDataSetOpen)
        return prompter_.Message("A DataSet must be open before you can select Preferences!");
    if (PreferencesCommand) PreferencesCommand();
    if (state_.gPreferencesChanging) Reset();
}

bool RecView::AskLoseChanges() {
    return lifecycle_.AskLoseChanges();
}

void RecView::Quit() {
    editing_.FieldGroupLeft = 0;
    if (AskLoseChanges()) return;
    if (StopCommand) {
        if (!StopCommand()) return;
    } else if (state_.gDataSetOpen) {
        lifecycle_.CloseDataSet();
    }
    controls_.form.Close();
}

std::int64_t RecView::CountTaxa() const {
    const auto count = state_.gDatabase->OpenRecordset("SELECT count(*) AS taxa FROM qb_taxonomic_units",
                                                       store::RecordsetType::ForwardOnly);
    return count->Eof() ? 0 : count->At(0).AsLong();
}

void RecView::TabClicked() {
    const int clicked = controls_.TabStrip1.SelectedIndex();
    if (clicked == tabOnShow_) return;
    TabOnShow().Hidden();
    tabOnShow_ = clicked;
    TabOnShow().Shown();
}

}  // namespace quillon::editor
