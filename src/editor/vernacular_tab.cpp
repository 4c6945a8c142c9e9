#include "editor/vernacular_tab.h"

#include <fmt/format.h>

#include "core/attempt.h"
#include "core/text.h"
#include "core/value.h"
#include "records/vernaculars.h"
#include "store/engine.h"

namespace quillon::editor {

using Choices = std::vector<ChoiceControl::Choice>;
using Column = VernacularColumn;

namespace {

constexpr std::string_view kLanguages = "SELECT DISTINCT language FROM qb_vernaculars";
constexpr std::string_view kUnspecified = "unspecified";
constexpr std::size_t kNameSize = 80, kLanguageSize = 15;  // of the fields in the store

GridControl::Row RowOf(const store::Recordset& name) {
    return {name["vernacular_name"].AsText(),
            name["language"].AsText(),
            name["approved_ind"].AsBoolean() ? "Yes" : "No",
            std::to_string(name["qb_id"].AsLong()),
            std::to_string(name["qb_vern_id"].AsLong()),
            std::to_string(name["vern_id"].AsLong())};
}

std::vector<GridControl::Row> ReadNames(store::Database& database, int qb_id) {
    std::vector<GridControl::Row> rows;
    const auto names = database.OpenQueryDef("Get Vernaculars").Set("qbid", qb_id).CreateSnapshot();
    for (; !names->Eof(); names->MoveNext()) rows.push_back(RowOf(*names));
    return rows;
}

// The row as the pickers of the documentation tabs name it.
std::string TextOf(const GridControl::Row& row) {
    return row[Column::kName] + " [" + row[Column::kLanguage] + "]";
}

int IdOf(const GridControl::Row& row, std::size_t column) {
    return static_cast<int>(Value(row[column]).AsLong());
}

records::Vernacular VernacularOf(const GridControl::Row& row) {
    return {IdOf(row, Column::kQbVernId), IdOf(row, Column::kVernId), row[Column::kName],
            row[Column::kLanguage], row[Column::kApproved] == "Yes"};
}

Choices ReadLanguages(store::Database& database) {
    Choices languages;
    const auto rows = database.OpenRecordset(kLanguages, store::RecordsetType::ForwardOnly);
    for (; !rows->Eof(); rows->MoveNext()) {
        const Value language = rows->At(0);
        if (!language.IsNull()) languages.push_back({language.AsText(), 0});
    }
    return languages;
}

}  // namespace

VernacularTab::VernacularTab(Form& form)
    : grdVernacular(form, "grdVernacular",
                    {{"Name", false, 40},
                     {"Language", false, 20},
                     {"Approved"},
                     {"ID", true},
                     {"QB VERN ID", true},
                     {"VERN ID", true}}),
      lblVName(form, "lblVName", "&Name"),
      txtVName(form, "txtVName", kNameSize),
      lblLanguage(form, "lblLanguage", "&Language"),
      cboLanguage(form, "cboLanguage", ComboControl::Style::Editable, kLanguageSize),
      chkApproved(form, "chkApproved", "A&pproved"),
      cmdVAdd(form, "cmdVAdd", "&Add"),
      cmdVModify(form, "cmdVModify", "&Modify"),
      cmdVDelete(form, "cmdVDelete", "&Delete") {
    for (ButtonControl* command : {&cmdVAdd, &cmdVModify, &cmdVDelete}) command->SetEnabled(false);
    grdVernacular.OnEdit([this] { ShowRow(); });
}

void VernacularTab::Connect(ApplicationState& state, Prompter& prompter) {
    RecordTab::Connect(state, prompter);
    cmdVAdd.OnClick([this] { Attempt(Outside(), [this] { Add(); }); });
    cmdVModify.OnClick([this] { Attempt(Outside(), [this] { Modify(); }); });
    cmdVDelete.OnClick([this] { Attempt(Outside(), [this] { Delete(); }); });
}

void VernacularTab::EnterMode(EditorMode mode) {
    for (ButtonControl* command : {&cmdVAdd, &cmdVModify, &cmdVDelete})
        command->SetEnabled(mode != EditorMode::None);
    if (mode != EditorMode::Input) return;
    removed.clear();
    for (std::size_t row = 0; row < grdVernacular.DataCount(); ++row)
        for (const std::size_t id : {Column::kQbId, Column::kQbVernId, Column::kVernId})
            grdVernacular.SetCell(row, id, "0");
    OfferNames();
}

void VernacularTab::OfferLists() {
    cboLanguage.SetChoicesLater([this] {
        Choices languages;
        Attempt(Outside(), [&] {
            if (State().gDatabase) languages = ReadLanguages(*State().gDatabase);
        });
        return languages;
    });
}

void VernacularTab::Clear() {
    grdVernacular.ClearRows();
    removed.clear();
    ShowRow();
    OfferNames();
}

void VernacularTab::ClearForNextEntry() {
    if (!KeptForNextEntry(State().gPrefSaveOtherFields)) Clear();
}

void VernacularTab::Load(int qb_id) {
    Clear();
    OfferLists();
    Attempt(Outside(), [&] { grdVernacular.SetDataRows(ReadNames(*State().gDatabase, qb_id)); });
    OfferNames();
}

void VernacularTab::ShowRow() {
    const GridControl::Row* row = grdVernacular.SelectedData();
    txtVName.SetText(row == nullptr ? "" : (*row)[Column::kName]);
    cboLanguage.SetText(row == nullptr ? "" : (*row)[Column::kLanguage]);
    chkApproved.SetValue(row != nullptr && (*row)[Column::kApproved] == "Yes");
}

void VernacularTab::OfferNames(bool sayWhenNone) {
    Choices names;
    for (int i = 0; grdVernacular.IsDataRow(i); ++i) {
        const auto& row = grdVernacular.Rows()[static_cast<std::size_t>(i)];
        names.push_back({TextOf(row), IdOf(row, Column::kQbVernId)});
    }
    NamesChanged(names);
    if (names.empty() && sayWhenNone)
        Outside().Message("There are no associated vernaculars!  Please enter a vernacular first.");
}

void VernacularTab::Add() {
    State().RecordDirty = true;
    const auto row = CheckedRow({"", "", "", "0", "0", "0"}, -1);
    if (!row) return;
    grdVernacular.AddDataRow(*row);
    grdVernacular.SetSelectedRow(static_cast<int>(grdVernacular.DataCount()) - 1);
    ShowRow();
    OfferNames(true);
}

void VernacularTab::Modify() {
    const int selected = grdVernacular.SelectedRow();
    const GridControl::Row* shown = grdVernacular.SelectedData();
    if (shown == nullptr) return;
    State().RecordDirty = true;
    const auto row = CheckedRow(*shown, selected);
    if (!row) return;
    const std::string old = TextOf(*shown), name = TextOf(*row);
    grdVernacular.ReplaceRow(static_cast<std::size_t>(selected), *row);
    ShowRow();
    if (name != old) EmitRenamed(IdOf(*row, Column::kQbVernId), old, name);
    OfferNames(true);
}

void VernacularTab::EmitRenamed(int qb_vern_id, const std::string& old, const std::string& name) {
    if (qb_vern_id == 0)
        NewNameRenamed(old, name);
    else
        NameRenamed(qb_vern_id, name);
}

std::optional<GridControl::Row> VernacularTab::CheckedRow(const GridControl::Row& from, int selected) {
    if (Trim(txtVName.Text()).empty()) {
        Outside().Message("A vernacular name is required!");
        txtVName.TakeFocus();
        return std::nullopt;
    }
    const bool noLanguage = Trim(cboLanguage.Text()).empty() || cboLanguage.Text() == kUnspecified;
    if (noLanguage) Outside().Message("A language should be selected!");
    GridControl::Row row = from;
    row[Column::kName] = txtVName.Text();
    row[Column::kLanguage] = noLanguage ? std::string(kUnspecified) : cboLanguage.Text();
    row[Column::kApproved] = chkApproved.Value() ? "Yes" : "No";
    if (!HoldsRow(row, selected)) return row;
    Outside().Message("Attempting to insert a duplicate Vernacular");
    return std::nullopt;
}

bool VernacularTab::HoldsRow(const GridControl::Row& row, int besides) const {
    for (int i = 0; grdVernacular.IsDataRow(i); ++i)
        if (i != besides && TextOf(grdVernacular.Rows()[static_cast<std::size_t>(i)]) == TextOf(row))
            return true;
    return false;
}

void VernacularTab::Delete() {
    const GridControl::Row* row = grdVernacular.SelectedData();
    if (row == nullptr) return;
    const std::string name = TextOf(*row);
    const int qb_vern_id = IdOf(*row, Column::kQbVernId);
    if (!ConfirmDelete(qb_vern_id)) return;
    if (qb_vern_id != 0) removed.push_back(qb_vern_id);
    grdVernacular.RemoveSelectedData();
    State().RecordDirty = true;
    ShowRow();
    NameDeleted(name);
    OfferNames();
}

bool VernacularTab::ConfirmDelete(int qb_vern_id) {
    if (qb_vern_id == 0) return true;
    const std::size_t links =
        records::CountVernacularLinks(*State().gDatabase, State().currentTaxon.qb_id, qb_vern_id);
    if (links == 0) return true;
    return Outside().AskBeforeLoss(
        fmt::format("The vernacular you are deleting is currently linked to {} vernacular reference "
                    "links(s).  Deleting the vernacular will also delete the vernacular reference "
                    "link(s).  Do you wish to proceed?",
                    links),
        "Deleting Vernacular and Vernacular References");
}

bool VernacularTab::SaveNew(const records::RecordStore& records) {
    const records::TaxonKey taxon = records::KeyOf(State().currentTaxon);
    if (taxon.qb_id == 0) return false;
    bool saved = true;
    for (std::size_t row = 0; row < grdVernacular.DataCount(); ++row)
        saved = records::AddVernacular(records, taxon, VernacularOf(grdVernacular.Rows()[row])) && saved;
    return saved;
}

void VernacularTab::SaveChanges(const records::RecordStore& records) {
    const records::TaxonKey taxon = records::KeyOf(State().currentTaxon);
    for (const int id : removed) records::DeleteVernacular(records, taxon, id);
    for (std::size_t row = 0; row < grdVernacular.DataCount(); ++row)
        records::SaveVernacular(records, taxon, VernacularOf(grdVernacular.Rows()[row]));
}

}  // namespace quillon::editor
