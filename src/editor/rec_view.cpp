#include "editor/rec_view.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "core/text.h"
#include "editor/rec_view_load.h"

namespace quillon::editor {

namespace {

constexpr int kDistributionTab = 4;
constexpr std::array<std::string_view, 6> kRanksWithDistribution = {"SPECIES",    "SUBSPECIES", "VARIETY",
                                                                    "SUBVARIETY", "FORM",       "SUBFORM"};

bool HasDistribution(std::string_view rankName) {
    const std::string upper = UpperCase(rankName);
    return std::find(kRanksWithDistribution.begin(), kRanksWithDistribution.end(), upper) !=
           kRanksWithDistribution.end();
}

}  // namespace

RecView::RecView(ApplicationState& state, Prompter& prompter, ProgressDialog& progress,
                 store::Lifecycle& lifecycle)
    : state_(state), prompter_(prompter), progress_(progress), lifecycle_(lifecycle) {
    HangOnCommands();
    ResetForm();
}

void RecView::HangOnCommands() {
    controls_.mnuFOpen.OnClick([this] { OpenCommand(); });
    controls_.mnuFNew.OnClick([this] { NewCommand(); });
    controls_.mnuFSaveAs.OnClick([this] { SaveAsCommand(); });
    controls_.mnuFImport.OnClick([this] { RunImport(); });
    controls_.mnuFQuit.OnClick([this] { Quit(); });
    controls_.mnuHAbout.OnClick([this] { prompter_.ShowModal("FrmAbout"); });
    controls_.TabStrip1.OnEdit([this] { TabClicked(); });
    controls_.form.OnUserClose([this] { Quit(); });
}

void RecView::Around(const std::function<bool()>& command) {
    const auto before = state_.gDatabase;
    if (command()) return ShowDataSet();
    if (!state_.gDatabase && before) return ShowDataSet();
    if (state_.gDatabase != before && DataSetReopened) DataSetReopened();
}

void RecView::OpenCommand() {
    Around([this] { return lifecycle_.OpenDataSet(); });
}

void RecView::NewCommand() {
    Around([this] { return lifecycle_.NewDataSet(); });
}

void RecView::SaveAsCommand() {
    if (!state_.gDataSetOpen) return prompter_.Message("No DataSet is Open");
    Around([this] {
        lifecycle_.SaveDataSetAs();
        return false;
    });
}

void RecView::RunImport() {
    const ImportEnd end = ImportCommand ? ImportCommand() : ImportEnd::NotStarted;
    if (end == ImportEnd::Done && RebuildExplorer) RebuildExplorer();
    if (end != ImportEnd::NotStarted) ResetForm();
}

void RecView::Quit() {
    if (lifecycle_.AskLoseChanges()) return;
    if (state_.gDataSetOpen) lifecycle_.CloseDataSet();
    controls_.form.Close();
}

void RecView::ShowDataSet() {
    ChangeScope scope(controls_.form);
    prompter_.WaitCursor(true);
    if (state_.gDataSetOpen) {
        progress_.NewTask("Loading Taxon Data");
        progress_.SetStatus("Loading...");
    }
    ResetForm();
    if (RebuildExplorer) RebuildExplorer();
    if (state_.gDataSetOpen) progress_.EndTask();
    prompter_.WaitCursor(false);
}

// The form ready for a new record, as each DataSet begins.
void RecView::ResetForm() {
    ChangeScope scope(controls_.form);
    ClearFields();
    state_.currentTaxon = CurrentTaxon();
    if (state_.gDataSetOpen) lifecycle_.ReadKingdomAndRanks();
    state_.RecordDirty = false;
    state_.gNewChangeTrackIds.clear();
    controls_.cmdOK.SetCaption("&Save");
    StatusPanelSet("name", "");
    StatusPanelSet("taxa", state_.gDataSetOpen ? fmt::format("TAXA: {}", CountTaxa()) : "");
    StatusPanelSet("mode", state_.gDataSetOpen ? "INPUT" : "");
    controls_.form.SetTitle(state_.gDataSetOpen ? "Taxonomic Quillon - " + state_.gDataSetPath
                                                : std::string(store::kTitleNoDataSet));
}

void RecView::ClearFields() {
    for (TextControl* field : {&controls_.txtSciName, &controls_.txtRank, &controls_.txtAuthor,
                               &controls_.txtUsage, &controls_.txtParent}) {
        field->SetText("");
    }
    controls_.RVPanel4.SetEnabled(false);
}

void RecView::SelectExplorerItem(const ExplorerItem& item, bool checkDirty) {
    if (item.qb_id == state_.currentTaxon.qb_id || !state_.gDataSetOpen) return;
    ChangeScope scope(controls_.form);
    if (checkDirty && lifecycle_.AskLoseChanges()) {
        if (ReselectLater) ReselectLater(state_.currentTaxon.qb_id);
        return;
    }
    state_.currentTaxon.qb_id = item.qb_id;
    try {
        ShowRecord();
        ShowCounts(item);
    } catch (const store::StoreError& error) {
        prompter_.Message(error.Description());
    }
    if (controls_.TabStrip1.SelectedIndex() == kDistributionTab) TellTabDisabled();
}

void RecView::ShowRecord() {
    ClearFields();
    LoadTaxon(state_, prompter_, state_.currentTaxon.qb_id);
    const CurrentTaxon& taxon = state_.currentTaxon;
    controls_.cmdOK.SetCaption("&Save Changes");
    StatusPanelSet("mode", "EDIT");
    controls_.txtSciName.SetText(NameOf(taxon));
    controls_.txtRank.SetText(taxon.rank_name);
    controls_.txtAuthor.SetText(taxon.taxon_author);
    controls_.txtUsage.SetText(taxon.usage);
    controls_.txtParent.SetText(taxon.parent_name);
    controls_.RVPanel4.SetEnabled(HasDistribution(taxon.rank_name));
    state_.RecordDirty = false;
    state_.gNewChangeTrackIds.clear();
}

void RecView::ShowCounts(const ExplorerItem& item) {
    StatusPanelSet("name", NameOf(state_.currentTaxon));
    StatusPanelSet("taxa", fmt::format("TAXA: {}", CountTaxa()));
    StatusPanelSet("children", fmt::format("CHILDREN: {}", item.children));
    StatusPanelSet("descendants", fmt::format("DESCENDANTS: {}", item.descendants));
    StatusPanelSet("rank", "RANK: " + state_.currentTaxon.rank_name);
}

int RecView::CountTaxa() const {
    const auto count = state_.gDatabase->OpenRecordset("SELECT count(*) AS taxa FROM qb_taxonomic_units",
                                                       store::RecordsetType::ForwardOnly);
    return count->Eof() ? 0 : static_cast<int>(count->At(0).AsLong());
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
