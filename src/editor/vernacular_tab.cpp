#include "editor/vernacular_tab.h"

#include "core/attempt.h"
#include "core/value.h"
#include "store/engine.h"

namespace quillon::editor {

using Choices = std::vector<ChoiceControl::Choice>;
using Column = VernacularColumn;

namespace {

constexpr std::string_view kLanguages = "SELECT DISTINCT language FROM qb_vernaculars";
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
        names.push_back({row[Column::kName] + " [" + row[Column::kLanguage] + "]",
                         Value(row[Column::kQbVernId]).AsLong()});
    }
    NamesChanged(names);
    if (names.empty() && sayWhenNone)
        Outside().Message("There are no associated vernaculars!  Please enter a vernacular first.");
}

}  // namespace quillon::editor
