#include "editor/rec_view.h"

#include "core/names.h"
#include "editor/attempt.h"

namespace quillon::editor {

namespace {

constexpr int kDistributionTab = 4;
constexpr std::string_view kNoDataSet = "No DataSet is Open";

}  // namespace

RecView::RecView(ApplicationState& state, Prompter& prompter, ProgressDialog& progress,
                 dataset::Lifecycle& lifecycle)
    : state_(state),
      prompter_(prompter),
      progress_(progress),
      lifecycle_(lifecycle),
      lists_(state, prompter, controls_.taxon),
      fields_(state, prompter, controls_.taxon, lists_) {
    lifecycle_.RecordDiscarded = [this] { Guarded([this] { ReflectRealNodePosition(); }); };
    MakeToolbarManagers();
    HangOnCommands();
    HangOnTabs();
    StartOfDataSet();
}

RecView::~RecView() {
    lifecycle_.RecordDiscarded = nullptr;
}

void RecView::HangOnCommands() {
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

void RecView::HangOnTabs() {
    for (Control* control : controls_.Tracked()) control->OnEdit([this] { state_.RecordDirty = true; });
    controls_.taxon.cboName1.OnEdit([this] { Guarded([this] { lists_.FillSpeciesList(); }); });
    controls_.taxon.cboDPRank.OnPick([this] {
        state_.RecordDirty = true;
        if (!controls_.taxon.cboDPRank.Text().empty()) Guarded([this] { lists_.FillParentNameList(); });
    });
    controls_.taxon.cmdParen.OnClick([this] {
        fields_.AddParentheses();
        state_.RecordDirty = true;
    });
    ConnectSynonymTab(controls_.synonyms, state_, prompter_);
    documentation::SetUpPublications(controls_.publications, state_, prompter_);
    documentation::SetUpExperts(controls_.experts, state_, prompter_);
    documentation::SetUpOtherSources(controls_.otherSources, state_, prompter_);
    controls_.TabStrip1.OnEdit([this] { TabClicked(); });
}

void RecView::Around(const std::function<bool()>& command) {
    const auto before = state_.gDatabase;
    if (command()) return ShowDataSet();
    if (!state_.gDatabase && before) return ShowDataSet();
    if (state_.gDatabase != before && DataSetReopened) DataSetReopened();
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
    Around([&] { return opened = lifecycle_.OpenDataSet(); });
    // The record was given up for a file that was refused: the form is to say again what the store says.
    if (!opened && wasDirty && !state_.RecordDirty) Reset();
}

void RecView::NewCommand() {
    Around([this] { return lifecycle_.NewDataSet(); });
}

void RecView::SaveAsCommand() {
    WithDataSet([this] {
        Around([this] {
            lifecycle_.SaveDataSetAs();
            return false;
        });
    });
}

void RecView::RunImport() {
    const ImportEnd end = ImportCommand ? ImportCommand() : ImportEnd::NotStarted;
    if (end != ImportEnd::Done) return;
    if (RebuildExplorer) RebuildExplorer();
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

std::string RecView::CurrentTaxonName() const {
    const CurrentTaxon& taxon = state_.currentTaxon;
    const TaxonTab& tab = controls_.taxon;
    return quillon::CurrentTaxonName({taxon.unit_ind1, taxon.unit_name1, taxon.unit_ind2, taxon.unit_name2,
                                      taxon.unit_ind3, taxon.unit_name3, taxon.unit_ind4, taxon.unit_name4,
                                      tab.cboName1.Text(), tab.txtName1.Text(), tab.cboName2.Text(),
                                      tab.txtName2.Text(), tab.txtName3.Text()});
}

std::int64_t RecView::CountTaxa() const {
    const auto count = state_.gDatabase->OpenRecordset("SELECT count(*) AS taxa FROM qb_taxonomic_units",
                                                       store::RecordsetType::ForwardOnly);
    return count->Eof() ? 0 : count->At(0).AsLong();
}

void RecView::StatusPanelSet(std::string_view panelKey, std::string_view text) {
    for (LabelControl* panel : {&controls_.name, &controls_.taxa, &controls_.mode}) {
        if (panel->Name() == panelKey) panel->SetCaption(text);
    }
}

void RecView::TabClicked() {
    if (controls_.TabStrip1.SelectedIndex() == kDistributionTab) TellTabDisabled();
}

void RecView::TellTabDisabled() {
    if (controls_.RVPanel4.Enabled()) return;
    prompter_.Message(
        "You cannot enter any geographical and/or jurisdictional data when editing ranks above the species "
        "level.  "
        "This screen is currently disabled!");
}

}  // namespace quillon::editor
