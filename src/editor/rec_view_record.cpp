// Showing a record: the way from a qb_id to a form in which every tab shows that taxon.
#include <fmt/format.h>

#include <array>

#include "core/text.h"
#include "editor/rec_view.h"
#include "editor/rec_view_load.h"

namespace quillon::editor {

namespace {

constexpr int kDistributionTab = 4;

}  // namespace

void RecView::SelectExplorerItem(const ExplorerItem& item, bool checkDirty) {
    editing_.FieldGroupLeft = 0;
    if (item.qb_id == state_.currentTaxon.qb_id || !state_.gDataSetOpen) return;
    const ChangeScope scope(controls_.form);
    if (checkDirty && AskLoseChanges()) {
        if (ReselectLater) ReselectLater(state_.currentTaxon.qb_id);
        return;
    }
    state_.currentTaxon.qb_id = item.qb_id;
    ShowRecord();
    editing_.dropInProgress = false;
    for (const std::string_view key : {"addnew", "cut", "copy"}) SetEnabled(key, true);
    EnableMoves();
    ShowCounts(item);
    if (controls_.TabStrip1.SelectedIndex() == kDistributionTab) TellTabDisabled();
}

void RecView::ShowRecord() {
    const ChangeScope scope(controls_.form);
    try {
        ClearRecordVariables(state_);
        ClearTaxonTab(controls_.taxon);
        LoadLists();
        EnterEdit();
        LoadTaxon(state_, prompter_, state_.currentTaxon.qb_id);
        editing_.FieldGroupEntered = editing_.FieldGroupLeft = 0;
        LoadFields();
        LoadTabs();
        LoadDocumentation();
        RestoreNames();
        FillSelectors();
    } catch (const store::StoreError& error) {
        prompter_.Message(error.Description());
    }
    state_.RecordDirty = false;
    state_.gNewChangeTrackIds.clear();
    StatusPanelSet("validity", UpperCase(state_.currentTaxon.usage));
}

void RecView::LoadLists() {
    lists_.FillRankList();
    SetFieldsForRank();
    lists_.FillRatingLists();
    lists_.FillReasonList();
    lists_.FillAuthorLists();
    FillLanguageList(controls_.vernaculars, state_, prompter_);
}

void RecView::LoadFields() {
    TaxonTab& tab = controls_.taxon;
    tab.cboName1.SetLocked(true);
    tab.cboName2.SetLocked(true);
    fields_.ShowTaxon();
    controls_.RVPanel4.SetEnabled(RankHasDistribution(tab.cboRank.Text()));
    if (!tab.txtKingdom.Text().empty()) {
        state_.gKingdomName = tab.txtKingdom.Text();
        state_.gKingdomId = state_.currentTaxon.kingdom_id;
    }
    editing_.rankAsLoaded = tab.cboRank.Text();
}

void RecView::LoadTabs() {
    store::Database& database = *state_.gDatabase;
    const int qb_id = state_.currentTaxon.qb_id;
    SetupVernacularGrid(controls_.vernaculars);
    LoadVernaculars(controls_.vernaculars, database, qb_id);
    ClearDocumentation();
    LoadSynonymsTab();
    SetupCommentGrid(controls_.comments);
    LoadComments(controls_.comments, database, qb_id);
    fields_.SetUsageCaptions();
    ClearDistribution(controls_.distribution);
    LoadDistribution(controls_.distribution, database, prompter_, qb_id);
}

void RecView::LoadSynonymsTab() {
    SynonymTab& tab = controls_.synonyms;
    const std::string& usage = state_.currentTaxon.usage;
    SetupSynonymGrid(tab);
    FillSynonymRankList(tab, *state_.gDatabase, state_.currentTaxon.rank_name);
    FillAcceptedNameList(tab, state_, prompter_);
    if (usage == "accepted" || usage == "valid") {
        LoadSynonyms(tab, *state_.gDatabase, state_.currentTaxon.qb_id);
    } else if (usage == "not accepted" || usage == "invalid") {
        LoadAcceptedNames(tab, *state_.gDatabase, state_.currentTaxon.qb_id, state_.gKingdomName);
    }
}

void RecView::LoadDocumentation() {
    const int qb_id = state_.currentTaxon.qb_id;
    documentation::LoadPubGrid(controls_.publications, state_, prompter_, qb_id);
    documentation::LoadExpertGrid(controls_.experts, state_, prompter_, qb_id);
    documentation::LoadOtherSourceGrid(controls_.otherSources, state_, prompter_, qb_id);
}

// The lists of genera and species belong to the record that is shown now; its species name stays.
void RecView::RestoreNames() {
    TaxonTab& tab = controls_.taxon;
    if (state_.currentTaxon.rank_id >= state_.gRankSpecies) {
        const std::string species = tab.cboName2.Text();
        lists_.FillGenusList();
        lists_.FillSpeciesList();
        tab.cboName2.SetText(species);
    }
    tab.cboName1.SetLocked(false);
    tab.cboName2.SetLocked(false);
}

void RecView::FillSelectors() {
    const std::array<ComboControl*, 3> selectors = {&controls_.publications.cboVernPub,
                                                    &controls_.experts.cboVernExp,
                                                    &controls_.otherSources.cboVernSrc};
    FillVernSelectors(controls_.vernaculars.grdVernacular, selectors, "Delete", prompter_);
}

void RecView::ShowCounts(const ExplorerItem& item) {
    StatusPanelSet("name", CurrentTaxonName());
    try {
        StatusPanelSet("taxa", fmt::format("TAXA: {}", CountTaxa()));
    } catch (const store::StoreError& error) {
        prompter_.Message(error.Description());
    }
    StatusPanelSet("children", fmt::format("CHILDREN: {}", item.children));
    StatusPanelSet("descendants", fmt::format("DESCENDANTS: {}", item.descendants));
    StatusPanelSet("rank", "RANK: " + state_.currentTaxon.rank_name);
}

}  // namespace quillon::editor
