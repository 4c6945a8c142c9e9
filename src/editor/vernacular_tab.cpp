#include "editor/vernacular_tab.h"

#include "core/value.h"
#include "documentation/association.h"
#include "editor/attempt.h"

namespace quillon::editor {

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

std::vector<ChoiceControl::Choice> LanguagesOf(store::Database& database) {
    std::vector<ChoiceControl::Choice> languages;
    const auto rows = database.OpenRecordset(kLanguages, store::RecordsetType::ForwardOnly);
    for (; !rows->Eof(); rows->MoveNext()) {
        const Value language = rows->At(0);
        if (!language.IsNull()) languages.push_back({language.AsText(), 0});
    }
    return languages;
}

}  // namespace

VernacularTab::VernacularTab(Form& form)
    : grdVernacular(
          form, "grdVernacular",
          {{"Name"}, {"Language"}, {"Approved"}, {"ID", true}, {"QB VERN ID", true}, {"VERN ID", true}}),
      lblVName(form, "lblVName", "&Name"),
      txtVName(form, "txtVName", kNameSize),
      lblLanguage(form, "lblLanguage", "&Language"),
      cboLanguage(form, "cboLanguage", ComboControl::Style::Editable, kLanguageSize),
      chkApproved(form, "chkApproved", "A&pproved"),
      cmdVAdd(form, "cmdVAdd", "&Add"),
      cmdVModify(form, "cmdVModify", "&Modify"),
      cmdVDelete(form, "cmdVDelete", "&Delete") {
    for (ButtonControl* command : {&cmdVAdd, &cmdVModify, &cmdVDelete}) command->SetEnabled(false);
    grdVernacular.OnEdit([this] { ShowVernacularRow(*this); });
    documentation::InitGrid(grdVernacular);
}

void SetupVernacularGrid(VernacularTab& tab) {
    documentation::InitGrid(tab.grdVernacular);
    tab.removed.clear();
    ClearVernacularFields(tab);
}

void LoadVernaculars(VernacularTab& tab, store::Database& database, int qb_id) {
    std::vector<GridControl::Row> rows;
    const auto names = database.OpenQueryDef("Get Vernaculars").Set("qbid", qb_id).CreateSnapshot();
    for (; !names->Eof(); names->MoveNext()) rows.push_back(RowOf(*names));
    rows.emplace_back();  // the empty one
    tab.grdVernacular.SetRows(std::move(rows));
}

void ShowVernacularRow(VernacularTab& tab) {
    const int selected = tab.grdVernacular.SelectedRow();
    if (!documentation::IsDataRow(tab.grdVernacular, selected)) return ClearVernacularFields(tab);
    const auto& row = tab.grdVernacular.Rows()[static_cast<std::size_t>(selected)];
    tab.txtVName.SetText(row[Column::kName]);
    tab.cboLanguage.SetText(row[Column::kLanguage]);
    tab.chkApproved.SetValue(row[Column::kApproved] == "Yes");
}

void ClearVernacularFields(VernacularTab& tab) {
    tab.txtVName.SetText("");
    tab.cboLanguage.SetText("");
    tab.chkApproved.SetValue(false);
}

void FillLanguageList(VernacularTab& tab, ApplicationState& state, Prompter& prompter) {
    tab.cboLanguage.SetChoicesLater([&state, &prompter] {
        std::vector<ChoiceControl::Choice> languages;
        Attempt(prompter, [&] {
            if (state.gDatabase) languages = LanguagesOf(*state.gDatabase);
        });
        return languages;
    });
}

void FillVernSelectors(const GridControl& grdVernacular, std::span<ComboControl* const> selectors,
                       std::string_view mode, Prompter& prompter) {
    std::vector<ChoiceControl::Choice> names;
    for (int i = 0; documentation::IsDataRow(grdVernacular, i); ++i) {
        const auto& row = grdVernacular.Rows()[static_cast<std::size_t>(i)];
        names.push_back({row[Column::kName] + " [" + row[Column::kLanguage] + "]",
                         Value(row[Column::kQbVernId]).AsLong()});
    }
    for (ComboControl* selector : selectors) {
        const std::string text = selector->Text();
        selector->SetChoices(names);
        selector->SetText(text);
    }
    if (names.empty() && mode != "Delete")
        prompter.Message("There are no associated vernaculars!  Please enter a vernacular first.");
}

}  // namespace quillon::editor
