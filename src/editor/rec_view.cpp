#include "editor/rec_view.h"

#include <utility>

#include "core/attempt.h"

namespace quillon::editor {

namespace {

constexpr std::string_view kNoDataSet = "No DataSet is Open";

// An unset command does nothing, so that the form also works on its own.
void Run(const std::function<void()>& command) {
    if (command) command();
}

}  // namespace

RecView::RecView(ApplicationState& state, Prompter& prompter, ProgressDialog& progress,
                 dataset::Lifecycle& lifecycle, const Clock& clock)
    : state_(state),
      prompter_(prompter),
      progress_(progress),
      lifecycle_(lifecycle),
      focusGroups_(state, editing_, controls_.taxon, controls_.cmdOK),
      move_(state, prompter, controls_),
      checks_(state, prompter, controls_, editing_),
      save_(state, prompter, lifecycle.Engine(), controls_) {
    lifecycle_.RecordDiscarded = [this] { Guarded([this] { ReflectRealNodePosition(); }); };
    controls_.comments.UseClock(clock);
    MakeToolbarManagers();
    ConnectCommands();
    ConnectTabs();
    StartOfDataSet();
}

RecView::~RecView() {
    lifecycle_.RecordDiscarded = nullptr;
}

void RecView::ConnectCommands() {
    const auto on = [this](ButtonControl& button, std::function<void()> command) {
        button.OnClick([this, run = std::move(command)] { Guarded(run); });
    };
    const auto onDataSet = [this](ButtonControl& button, std::function<void()> command) {
        button.OnClick([this, run = std::move(command)] { WithDataSet(run); });
    };
    on(controls_.mnuFOpen, [this] { OpenCommand(); });
    on(controls_.mnuFNew, [this] { NewCommand(); });
    onDataSet(controls_.mnuSave, [this] { SaveCommand(); });
    onDataSet(controls_.mnuEDelete, [this] { RecordDelete(); });
    onDataSet(controls_.mnuAuth, [this] {
        if (!AskLoseChanges()) Run(AuthorEditCommand);
    });
    onDataSet(controls_.cmdOK, [this] { SaveCommand(); });
    onDataSet(controls_.mnuFSaveAs, [this] { SaveAsCommand(); });
    on(controls_.mnuFImport, [this] { RunImport(); });
    onDataSet(controls_.mnuFValidate, [this] { Run(ValidateCommand); });
    onDataSet(controls_.mnuFExport, [this] { Run(ExportCommand); });
    on(controls_.mnuFPreferences, [this] { RunPreferences(); });
    on(controls_.mnuFQuit, [this] { Quit(); });
    onDataSet(controls_.mnuAdd, [this] { AddNew(); });
    onDataSet(controls_.mnuCopy, [this] { CopyRecord(); });
    onDataSet(controls_.mnuECut, [this] { Cut(); });
    onDataSet(controls_.mnuPaste, [this] { Paste(); });
    onDataSet(controls_.mnuEUndo, [this] { Undo(); });
    onDataSet(controls_.mnuParent, [this] { MoveBy(&navigation::cExplorer::MoveParent); });
    onDataSet(controls_.mnuFirst, [this] { MoveBy(&navigation::cExplorer::MoveFirst); });
    onDataSet(controls_.mnuPrev, [this] { MoveBy(&navigation::cExplorer::MovePrev); });
    onDataSet(controls_.mnuNext, [this] { MoveBy(&navigation::cExplorer::MoveNext); });
    onDataSet(controls_.mnuLast, [this] { MoveBy(&navigation::cExplorer::MoveLast); });
    onDataSet(controls_.mnuRankFirst, [this] { MoveByRank(RankStep::First); });
    onDataSet(controls_.mnuRankPrev, [this] { MoveByRank(RankStep::Previous); });
    onDataSet(controls_.mnuRankNext, [this] { MoveByRank(RankStep::Next); });
    onDataSet(controls_.mnuRankLast, [this] { MoveByRank(RankStep::Last); });
    on(controls_.mnuHContents, [this] { Run(HelpContentsCommand); });
    on(controls_.mnuHSearch, [this] { Run(HelpSearchCommand); });
    on(controls_.mnuHAbout, [this] { prompter_.ShowModal("FrmAbout"); });
    controls_.form.OnUserClose([this] { Guarded([this] { Quit(); }); });
}

void RecView::ConnectTabs() {
    for (RecordTab* tab : controls_.Tabs()) tab->Connect(state_, prompter_);
    for (Control* control : controls_.form.Controls()) {
        const int tab = controls_.TabOf(*control);
        if (tab != 0) control->OnTakeFocus([this, tab] { ShowTab(tab); });
    }
    controls_.taxon.chkUnnamed.OnLeave([this] { editing_.FieldGroupLeft = 0; });
    controls_.taxon.BringUp.Connect([this] { ShowTab(controls_.TabOf(controls_.taxon.FirstControl())); });
    controls_.TabStrip1.OnEdit([this] { Guarded([this] { TabClicked(); }); });
}

void RecView::RunAndRefresh(const std::function<bool()>& command) {
    const auto before = state_.gDatabase;
    if (command()) return ShowDataSet();
    if (!state_.gDatabase && before) return ShowDataSet();
    if (state_.gDatabase != before) DataSetReopened();
}

void RecView::WithDataSet(const std::function<void()>& command) {
    if (!state_.gDataSetOpen) return prompter_.Message(kNoDataSet);
    Guarded(command);
}

void RecView::Guarded(const std::function<void()>& command) {
    const ChangeScope scope(controls_.form);
    Attempt(prompter_, command);
}

void RecView::OpenCommand() {
    const bool wasDirty = state_.RecordDirty;
    bool opened = false;
    RunAndRefresh([&] { return opened = lifecycle_.OpenDataSet(); });
    // The user gave up the changes, but the file was refused: show the stored record again.
    if (!opened && wasDirty && !state_.RecordDirty) Reset();
}

void RecView::NewCommand() {
    RunAndRefresh([this] { return lifecycle_.NewDataSet(); });
}

void RecView::SaveAsCommand() {
    RunAndRefresh([this] {
        lifecycle_.SaveDataSetAs();
        return false;
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
    Run(PreferencesCommand);
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

// Brings up the tab of a control that is about to take the focus.
void RecView::ShowTab(int tab) {
    Guarded([this, tab] {
        controls_.TabStrip1.SetSelectedIndex(tab);
        TabClicked();
    });
}

void RecView::GoToName() {
    const ChangeScope scope(controls_.form);
    TaxonTab& tab = controls_.taxon;
    if (tab.cboName1.Visible())
        tab.cboName1.TakeFocus();
    else
        tab.txtName1.TakeFocus();
}

void RecView::TabClicked() {
    const int clicked = controls_.TabStrip1.SelectedIndex();
    if (clicked == tabOnShow_) return;
    TabOnShow().Hidden();
    tabOnShow_ = clicked;
    TabOnShow().Shown();
}

}  // namespace quillon::editor
