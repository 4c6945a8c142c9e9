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

// Everything is emptied first, and each step tells its own failure: nothing of the record before stays under
// the name of this one.
void RecView::ShowRecord() {
    const ChangeScope scope(controls_.form);
    ClearRecordVariables(state_);
    ClearForm();
    LoadLists();
    EnterEdit();
    Guarded([this] { LoadTaxon(state_, prompter_, state_.currentTaxon.qb_id); });
    editing_.FieldGroupEntered = editing_.FieldGroupLeft = 0;
    LoadFields();
    LoadTabs();
    LoadDocumentation();
    FillNameLists();
    FillSelectors();
    state_.RecordDirty = false;
    state_.gNewChangeTrackIds.clear();
    StatusPanelSet("validity", UpperCase(state_.currentTaxon.usage));
}

void RecView::LoadLists() {
    Guarded([this] { lists_.FillRankList(); });
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
    const int qb_id = state_.currentTaxon.qb_id;
    Guarded([&] { LoadVernaculars(controls_.vernaculars, *state_.gDatabase, qb_id); });
    LoadSynonymsTab();
    Guarded([&] { LoadComments(controls_.comments, *state_.gDatabase, qb_id); });
    fields_.SetUsageCaptions();
    Guarded([&] { LoadDistribution(controls_.distribution, *state_.gDatabase, prompter_, qb_id); });
}

void RecView::LoadSynonymsTab() {
    SynonymTab& tab = controls_.synonyms;
    const CurrentTaxon& taxon = state_.currentTaxon;
    tab.cboSRank.SetText(taxon.rank_name);
    Guarded([&] { FillSynonymRankList(tab, *state_.gDatabase, taxon.rank_name); });
    FillAcceptedNameList(tab, state_, prompter_);
    Guarded([&] {
        if (taxon.usage == "accepted" || taxon.usage == "valid") {
            LoadSynonyms(tab, *state_.gDatabase, taxon.qb_id);
        } else if (taxon.usage == "not accepted" || taxon.usage == "invalid") {
            LoadAcceptedNames(tab, *state_.gDatabase, taxon.qb_id, state_.gKingdomName);
        }
    });
}

void RecView::LoadDocumentation() {
    const int qb_id = state_.currentTaxon.qb_id;
    documentation::LoadPubGrid(controls_.publications, state_, prompter_, qb_id);
    documentation::LoadExpertGrid(controls_.experts, state_, prompter_, qb_id);
    documentation::LoadOtherSourceGrid(controls_.otherSources, state_, prompter_, qb_id);
}

// The lists of genera and species belong to the record that is shown now; the names on the form stay.
void RecView::FillNameLists() {
    TaxonTab& tab = controls_.taxon;
    if (state_.currentTaxon.rank_id >= state_.gRankSpecies) {
        Guarded([this] { lists_.FillGenusList(); });
        Guarded([this] { lists_.FillSpeciesList(); });
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
    StatusPanelSet("name", CurrentTaxonName() + (item.isInTree ? "" : " (not in the tree)"));
    Guarded([this] { StatusPanelSet("taxa", fmt::format("TAXA: {}", CountTaxa())); });
    StatusPanelSet("children", fmt::format("CHILDREN: {}", item.children));
    StatusPanelSet("descendants", fmt::format("DESCENDANTS: {}", item.descendants));
    StatusPanelSet("rank", "RANK: " + state_.currentTaxon.rank_name);
}

}  // namespace quillon::editor
