#include "documentation/publication_tab.h"

#include <algorithm>

namespace quillon::documentation {

namespace {

GridControl::Row GridRow(const DocRow& doc, const store::Recordset& row, std::string_view scientificName) {
    GridControl::Row cells(kPubColumns);
    cells[kPubName] = doc.Name(scientificName);
    cells[kPubAuthor] = row["reference_author"].AsText();
    cells[kPubOrgDesc] = row["original_desc_ind"].AsBoolean() ? "Yes" : "No";
    cells[kPubActDate] = row["actual_pub_date"].AsText();
    cells[kPubTitle] = row["title"].AsText();
    cells[kPubPublication] = row["publication_name"].AsText();
    cells[kPubListedDate] = row["listed_pub_date"].AsText();
    cells[kPubPublisher] = row["publisher"].AsText();
    cells[kPubLocation] = row["pub_place"].AsText();
    cells[kPubISBN] = row["isbn"].AsText();
    cells[kPubISSN] = row["issn"].AsText();
    cells[kPubPages] = row["pages"].AsText();
    cells[kPubComments] = row["pub_comment"].AsText();
    cells[kPubQbId] = std::to_string(doc.qbDocumentId);
    cells[kPubId] = std::to_string(doc.documentId);
    cells[kPubCtId] = std::to_string(doc.qb_change_track_id);
    cells[kPubAssociation] = doc.association;
    cells[kPubQbVernId] = std::to_string(doc.qb_vern_id);
    cells[kPubOrigQbId] = cells[kPubQbId];
    return cells;
}

// A comment is read with its row: it keeps its whole length.
constexpr DocLoad kLoad = {
    "PUB",
    "PARAMETERS taxon Long; "
    "SELECT 'Scientific Name' As assoc, qb_publication_id, publication_id, reference_author, title, "
    "publication_name, listed_pub_date, actual_pub_date, publisher, pub_place, isbn, issn, pages, "
    "publication_id_prefix, 0 As qb_vern_id, original_desc_ind, vernacular_name, qb_change_track_id, "
    "pub_comment "
    "FROM qb_reference_links INNER JOIN qb_publications "
    "ON qb_reference_links.qb_documentation_id = qb_publications.qb_publication_id "
    "WHERE qb_id = taxon AND qb_documentation_id_prefix = 'PUB' "
    "UNION "
    "SELECT 'Vernacular' As assoc, qb_publication_id, publication_id, reference_author, title, "
    "publication_name, listed_pub_date, actual_pub_date, publisher, pub_place, isbn, issn, pages, "
    "publication_id_prefix, qb_vern_id, 0 As original_desc_ind, vernacular_name, "
    "NULL As qb_change_track_id, pub_comment "
    "FROM qb_vern_ref_links INNER JOIN qb_publications "
    "ON qb_vern_ref_links.qb_documentation_id = qb_publications.qb_publication_id "
    "WHERE qb_id = taxon AND qb_documentation_id_prefix = 'PUB';",
    "qb_publication_id",
    "publication_id",
    GridRow,
};

// All cells of the row go to the controls; of an empty one they empty them.
void ShowCells(PublicationTab& tab, const GridControl::Row& cells) {
    tab.cboAuthor.SetText(cells[kPubAuthor]);
    tab.chkPOD.SetValue(cells[kPubOrgDesc] == "Yes");
    tab.cboADate.SetText(cells[kPubActDate]);
    tab.cboTitle.SetText(cells[kPubTitle]);
    tab.cboPublication.SetText(cells[kPubPublication]);
    tab.txtLDate.SetText(cells[kPubListedDate]);
    tab.txtPublisher.SetText(cells[kPubPublisher]);
    tab.txtLocation.SetText(cells[kPubLocation]);
    tab.txtISBN.SetText(cells[kPubISBN]);
    tab.txtISSN.SetText(cells[kPubISSN]);
    tab.txtPages.SetText(cells[kPubPages]);
    tab.txtPubComments.SetText(cells[kPubComments]);
    tab.txtPQBID.SetText(cells[kPubQbId]);
    tab.txtPID.SetText(cells[kPubId]);
}

void ShowSelected(PublicationTab& tab) {
    ShowPubRow(tab, tab.grdPublications.SelectedRow());
}

}  // namespace

PublicationTab::PublicationTab(Form& owner) : form(owner) {
    for (TextControl* id : {&txtPQBID, &txtPID}) id->SetLocked(true);
    for (ButtonControl* command : {&cmdPubAdd, &cmdPubModify, &cmdPubDelete}) command->SetEnabled(false);
    SetUp(Associated());
    InitGrid(grdPublications);
}

void SetUpPublications(PublicationTab& tab, ApplicationState& state, Prompter& prompter) {
    tab.grdPublications.OnEdit([&tab] { ShowSelected(tab); });
    tab.grdPublications.OnActivate([&tab] { ShowSelected(tab); });
    tab.cboAuthor.OnDropDown([&] {
        if (tab.cboAuthor.LeftSinceRefill()) NarrowPubAuthors(tab, state, prompter);
    });
    tab.cboPublication.OnDropDown([&] {
        if (tab.cboPublication.LeftSinceRefill()) NarrowPubNames(tab, state, prompter);
    });
    tab.cboTitle.OnDropDown([&] {
        if (tab.cboTitle.LeftSinceRefill()) NarrowPubTitles(tab, state, prompter);
    });
    tab.cboAuthor.OnPick([&] { PubSelectionFill(tab, state, prompter, "author"); });
    tab.cboADate.OnPick([&] { PubSelectionFill(tab, state, prompter, "act_date"); });
    tab.cboPublication.OnPick([&] { PubSelectionFill(tab, state, prompter, "pub_name"); });
    tab.cboTitle.OnPick([&] { PubSelectionFill(tab, state, prompter, "title"); });
}

void InitPubGrid(PublicationTab& tab) {
    InitGrid(tab.grdPublications);
}

void ResetPublications(PublicationTab& tab) {
    ChangeScope scope(tab.form);
    InitPubGrid(tab);
    ShowPubRow(tab, 0);
}

void LoadPubGrid(PublicationTab& tab, ApplicationState& state, Prompter& prompter, int qb_id) {
    ChangeScope scope(tab.form);
    LoadGrid(tab.grdPublications, state, prompter, kLoad, qb_id);
    ShowPubRow(tab, 0);
}

void ShowPubRow(PublicationTab& tab, int row) {
    ChangeScope scope(tab.form);
    const bool isData = IsDataRow(tab.grdPublications, row);
    const GridControl::Row cells =
        isData ? tab.grdPublications.Rows()[static_cast<std::size_t>(row)] : GridControl::Row(kPubColumns);
    std::copy(cells.begin(), cells.end(), tab.PubFieldSnapshot.begin());
    if (isData) {
        ShowCells(tab, cells);
        Show(tab.Associated(), cells[kPubAssociation], cells[kPubName]);
    } else {
        ClearPubFields(tab);
    }
    // Where a new row is typed belongs to no change track.
    if (!IsChangeTracking(tab.form)) SetPubControlsEnabled(tab, isData ? cells[kPubCtId] : "0");
}

void ClearPubFields(PublicationTab& tab) {
    ChangeScope scope(tab.form);
    ShowCells(tab, GridControl::Row(kPubColumns));
    Show(tab.Associated(), kScientificName, {});
}

void SetPubControlsEnabled(PublicationTab& tab, std::string_view ctId) {
    ChangeScope scope(tab.form);
    const bool enabled = ctId == "0";
    tab.chkPOD.SetEnabled(enabled);
    for (ComboControl* field : {&tab.cboAuthor, &tab.cboADate, &tab.cboTitle, &tab.cboPublication})
        field->SetEnabled(enabled);
    for (TextControl* field : {&tab.txtLDate, &tab.txtPublisher, &tab.txtLocation, &tab.txtISBN, &tab.txtISSN,
                               &tab.txtPages, &tab.txtPubComments}) {
        field->SetEnabled(enabled);
    }
}

}  // namespace quillon::documentation
