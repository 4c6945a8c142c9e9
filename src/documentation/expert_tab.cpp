#include "documentation/expert_tab.h"

#include "store/engine.h"

namespace quillon::documentation {

namespace {

GridControl::Row GridRow(const DocRow& doc, const store::Recordset& row, std::string_view scientificName) {
    GridControl::Row cells(kExpColumns);
    cells[kExpName] = doc.Name(scientificName);
    cells[kExpExpert] = row["expert"].AsText();
    cells[kExpComments] = row["exp_comment"].AsText();
    cells[kExpQbId] = std::to_string(doc.qbDocumentId);
    cells[kExpId] = std::to_string(doc.documentId);
    cells[kExpCtId] = std::to_string(doc.qb_change_track_id);
    cells[kExpAssociation] = doc.association;
    cells[kExpQbVernId] = std::to_string(doc.qb_vern_id);
    cells[kExpOrigQbId] = cells[kExpQbId];
    return cells;
}

constexpr DocLoad kLoad = {
    "EXP",
    "PARAMETERS taxon Long; "
    "SELECT 'Scientific Name' As assoc, expert_id_prefix, qb_expert_id, expert_id, expert, 0 As qb_vern_id, "
    "vernacular_name, qb_change_track_id, exp_comment "
    "FROM qb_reference_links INNER JOIN qb_experts "
    "ON qb_reference_links.qb_documentation_id = qb_experts.qb_expert_id "
    "WHERE qb_id = taxon AND qb_documentation_id_prefix = 'EXP' "
    "UNION "
    "SELECT 'Vernacular' As assoc, expert_id_prefix, qb_expert_id, expert_id, expert, qb_vern_id, "
    "vernacular_name, NULL As qb_change_track_id, exp_comment "
    "FROM qb_vern_ref_links INNER JOIN qb_experts "
    "ON qb_vern_ref_links.qb_documentation_id = qb_experts.qb_expert_id "
    "WHERE qb_id = taxon AND qb_documentation_id_prefix = 'EXP';",
    "qb_expert_id",
    "expert_id",
    GridRow,
};

void ShowCells(ExpertTab& tab, const GridControl::Row& cells) {
    tab.cboExpert.SetText(cells[kExpExpert]);
    tab.txtExpComments.SetText(cells[kExpComments]);
    tab.txtEQBID.SetText(cells[kExpQbId]);
    tab.txtEID.SetText(cells[kExpId]);
}

void ShowSelected(ExpertTab& tab) {
    ShowExpertRow(tab, tab.grdExperts.SelectedRow());
}

}  // namespace

ExpertTab::ExpertTab(Form& owner) : form(owner) {
    for (TextControl* id : {&txtEQBID, &txtEID}) id->SetLocked(true);
    for (ButtonControl* command : {&cmdExpAdd, &cmdExpModify, &cmdExpDelete}) command->SetEnabled(false);
    SetUp(Associated());
    InitGrid(grdExperts);
}

void SetUpExperts(ExpertTab& tab, ApplicationState& state, Prompter& prompter) {
    tab.grdExperts.OnEdit([&tab] { ShowSelected(tab); });
    tab.grdExperts.OnActivate([&tab] { ShowSelected(tab); });
    tab.cboExpert.OnPick([&] { ExpertSelectionFill(tab, state, prompter); });
}

void InitExpertGrid(ExpertTab& tab) {
    InitGrid(tab.grdExperts);
}

void ResetExperts(ExpertTab& tab) {
    ChangeScope scope(tab.form);
    InitExpertGrid(tab);
    ShowExpertRow(tab, 0);
}

void LoadExpertGrid(ExpertTab& tab, ApplicationState& state, Prompter& prompter, int qb_id) {
    ChangeScope scope(tab.form);
    LoadGrid(tab.grdExperts, state, prompter, kLoad, qb_id);
    ShowExpertRow(tab, 0);
}

void ShowExpertRow(ExpertTab& tab, int row) {
    ChangeScope scope(tab.form);
    const bool isData = IsDataRow(tab.grdExperts, row);
    std::string ctId = "0";  // where a new row is typed belongs to no change track
    if (isData) {
        const GridControl::Row& cells = tab.grdExperts.Rows()[static_cast<std::size_t>(row)];
        ShowCells(tab, cells);
        Show(tab.Associated(), cells[kExpAssociation], cells[kExpName]);
        ctId = cells[kExpCtId];
    } else {
        ClearExpertFields(tab);
    }
    if (!IsChangeTracking(tab.form)) SetExpertControlsEnabled(tab, ctId);
}

void ClearExpertFields(ExpertTab& tab) {
    ChangeScope scope(tab.form);
    ShowCells(tab, GridControl::Row(kExpColumns));
    Show(tab.Associated(), kScientificName, {});
}

void SetExpertControlsEnabled(ExpertTab& tab, std::string_view ctId) {
    ChangeScope scope(tab.form);
    tab.cboExpert.SetEnabled(ctId == "0");
    tab.txtExpComments.SetEnabled(true);
}

void ReloadExperts(ExpertTab& tab, const ApplicationState& state, Prompter& prompter) {
    tab.cboExpert.SetChoicesLater([&state, &prompter] {
        return ReadChoices(state, prompter, "SELECT DISTINCT expert FROM qb_experts", false);
    });
}

void ExpertSelectionFill(ExpertTab& tab, const ApplicationState& state, Prompter& prompter) {
    if (!state.gDatabase) return;
    try {
        const auto row = state.gDatabase->OpenQueryDef("Get Expert Comment")
                             .Set("exp", tab.cboExpert.Text())
                             .CreateSnapshot();
        if (row->Eof()) return;
        ChangeScope scope(tab.form);
        tab.txtExpComments.SetText(row->Get("exp_comment").AsText());
        tab.txtEQBID.SetText(row->Get("qb_expert_id").AsText());
        tab.txtEID.SetText(row->Get("expert_id").AsText());
    } catch (const store::StoreError& error) {
        prompter.Message("Failed " + error.Description());
    }
}

}  // namespace quillon::documentation
