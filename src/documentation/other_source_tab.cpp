#include "documentation/other_source_tab.h"

#include "store/engine.h"

namespace quillon::documentation {

namespace {

GridControl::Row GridRow(const DocRow& doc, const store::Recordset& row, std::string_view scientificName) {
    GridControl::Row cells(kSrcColumns);
    cells[kSrcName] = doc.Name(scientificName);
    cells[kSrcSource] = row["source"].AsText();
    cells[kSrcType] = row["source_type"].AsText();
    cells[kSrcVersion] = row["version"].AsText();
    cells[kSrcAcquisitionDate] = row["acquisition_date"].AsText();
    cells[kSrcComments] = row["source_comment"].AsText();
    cells[kSrcQbId] = std::to_string(doc.qbDocumentId);
    cells[kSrcId] = std::to_string(doc.documentId);
    cells[kSrcCtId] = std::to_string(doc.qb_change_track_id);
    cells[kSrcAssociation] = doc.association;
    cells[kSrcQbVernId] = std::to_string(doc.qb_vern_id);
    cells[kSrcOrigQbId] = cells[kSrcQbId];
    return cells;
}

constexpr DocLoad kLoad = {
    "SRC",
    "PARAMETERS taxon Long; "
    "SELECT 'Scientific Name' As assoc, source_id_prefix, qb_source_id, source_id, source_type, source, "
    "version, acquisition_date, 0 As qb_vern_id, qb_change_track_id, vernacular_name, source_comment "
    "FROM qb_reference_links INNER JOIN qb_other_sources "
    "ON qb_reference_links.qb_documentation_id = qb_other_sources.qb_source_id "
    "WHERE qb_id = taxon AND qb_documentation_id_prefix = 'SRC' "
    "UNION "
    "SELECT 'Vernacular' As assoc, source_id_prefix, qb_source_id, source_id, source_type, source, "
    "version, acquisition_date, qb_vern_id, NULL As qb_change_track_id, vernacular_name, source_comment "
    "FROM qb_vern_ref_links INNER JOIN qb_other_sources "
    "ON qb_vern_ref_links.qb_documentation_id = qb_other_sources.qb_source_id "
    "WHERE qb_id = taxon AND qb_documentation_id_prefix = 'SRC';",
    "qb_source_id",
    "source_id",
    GridRow,
};

void ShowCells(OtherSourceTab& tab, const GridControl::Row& cells) {
    tab.cboSource.SetText(cells[kSrcSource]);
    tab.txtSourceType.SetText(cells[kSrcType]);
    tab.txtVersion.SetText(cells[kSrcVersion]);
    tab.txtADate.SetText(cells[kSrcAcquisitionDate]);
    tab.txtOSComments.SetText(cells[kSrcComments]);
    tab.txtOSQBID.SetText(cells[kSrcQbId]);
    tab.txtOSID.SetText(cells[kSrcId]);
}

void ShowSelected(OtherSourceTab& tab) {
    ShowOtherSourceRow(tab, tab.grdOtherSources.SelectedRow());
}

}  // namespace

OtherSourceTab::OtherSourceTab(Form& owner) : form(owner) {
    for (TextControl* id : {&txtOSQBID, &txtOSID}) id->SetLocked(true);
    for (ButtonControl* command : {&cmdOSAdd, &cmdOSModify, &cmdOSDelete}) command->SetEnabled(false);
    SetUp(Associated());
    InitGrid(grdOtherSources);
}

void SetUpOtherSources(OtherSourceTab& tab, ApplicationState& state, Prompter& prompter) {
    tab.grdOtherSources.OnEdit([&tab] { ShowSelected(tab); });
    tab.grdOtherSources.OnActivate([&tab] { ShowSelected(tab); });
    tab.cboSource.OnPick([&] { OtherSourceSelectionFill(tab, state, prompter); });
}

void InitOtherSourceGrid(OtherSourceTab& tab) {
    InitGrid(tab.grdOtherSources);
}

void ResetOtherSources(OtherSourceTab& tab) {
    ChangeScope scope(tab.form);
    InitOtherSourceGrid(tab);
    ShowOtherSourceRow(tab, 0);
}

void LoadOtherSourceGrid(OtherSourceTab& tab, ApplicationState& state, Prompter& prompter, int qb_id) {
    ChangeScope scope(tab.form);
    LoadGrid(tab.grdOtherSources, state, prompter, kLoad, qb_id);
    ShowOtherSourceRow(tab, 0);
}

void ShowOtherSourceRow(OtherSourceTab& tab, int row) {
    ChangeScope scope(tab.form);
    const bool isData = IsDataRow(tab.grdOtherSources, row);
    std::string ctId = "0";  // where a new row is typed belongs to no change track
    if (isData) {
        const GridControl::Row& cells = tab.grdOtherSources.Rows()[static_cast<std::size_t>(row)];
        ShowCells(tab, cells);
        Show(tab.Associated(), cells[kSrcAssociation], cells[kSrcName]);
        ctId = cells[kSrcCtId];
    } else {
        ClearOtherSourceFields(tab);
    }
    if (!IsChangeTracking(tab.form)) SetOtherSourceControlsEnabled(tab, ctId);
}

void ClearOtherSourceFields(OtherSourceTab& tab) {
    ChangeScope scope(tab.form);
    ShowCells(tab, GridControl::Row(kSrcColumns));
    Show(tab.Associated(), kScientificName, {});
}

void SetOtherSourceControlsEnabled(OtherSourceTab& tab, std::string_view ctId) {
    ChangeScope scope(tab.form);
    const bool enabled = ctId == "0";
    tab.cboSource.SetEnabled(enabled);
    for (TextControl* field : {&tab.txtSourceType, &tab.txtVersion, &tab.txtADate, &tab.txtOSComments})
        field->SetEnabled(enabled);
}

void ReloadOtherSources(OtherSourceTab& tab, const ApplicationState& state, Prompter& prompter) {
    tab.cboSource.SetChoicesLater([&state, &prompter] {
        return ReadChoices(state, prompter, "SELECT DISTINCT source FROM qb_other_sources", false);
    });
}

void OtherSourceSelectionFill(OtherSourceTab& tab, const ApplicationState& state, Prompter& prompter) {
    if (!state.gDatabase) return;
    try {
        const auto row = state.gDatabase->OpenQueryDef("Get Source Data")
                             .Set("src", tab.cboSource.Text())
                             .CreateSnapshot();
        if (row->Eof()) return;
        ChangeScope scope(tab.form);
        tab.txtSourceType.SetText(row->Get("source_type").AsText());
        tab.txtVersion.SetText(row->Get("version").AsText());
        tab.txtADate.SetText(row->Get("acquisition_date").AsText());
        tab.txtOSComments.SetText(row->Get("source_comment").AsText());
        tab.txtOSQBID.SetText(row->Get("qb_source_id").AsText());
        tab.txtOSID.SetText(row->Get("source_id").AsText());
    } catch (const store::StoreError& error) {
        prompter.Message("Failed " + error.Description());
    }
}

}  // namespace quillon::documentation
