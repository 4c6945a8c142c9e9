#include "documentation/documentation_tab.h"

#include <fmt/format.h>

#include "core/attempt.h"
#include "core/names.h"
#include "core/wait_cursor.h"
#include "documentation/document_rows.h"
#include "store/engine.h"

namespace quillon::documentation {

namespace {

constexpr std::string_view kYes = "Yes";
constexpr std::size_t kSnapshotCells = 20;

std::unique_ptr<Control> ControlOf(Form& form, const DocumentField& field) {
    std::string name(field.control);
    switch (field.kind) {
        case DocumentField::Kind::PickList:
            return std::make_unique<PickListControl>(form, std::move(name), field.maxLength);
        case DocumentField::Kind::Check:
            return std::make_unique<CheckControl>(form, std::move(name), field.caption);
        case DocumentField::Kind::Text:
            break;
    }
    return std::make_unique<TextControl>(form, std::move(name), field.maxLength);
}

std::vector<std::unique_ptr<Control>> ControlsOf(Form& form, const DocumentDescription& description) {
    std::vector<std::unique_ptr<Control>> controls;
    for (const DocumentField& field : description.fields) controls.push_back(ControlOf(form, field));
    return controls;
}

// The composed name of the taxon under edit, as the grids show it.
std::string ScientificName(const CurrentTaxon& taxon) {
    EditedName name;
    name.unit_ind1 = taxon.unit_ind1;
    name.unit_name1 = taxon.unit_name1;
    name.unit_ind2 = taxon.unit_ind2;
    name.unit_name2 = taxon.unit_name2;
    name.unit_ind3 = taxon.unit_ind3;
    name.unit_name3 = taxon.unit_name3;
    name.unit_ind4 = taxon.unit_ind4;
    name.unit_name4 = taxon.unit_name4;
    return CurrentTaxonName(name);
}

}  // namespace

DocumentationTab::DocumentationTab(Form& form, const DocumentDescription& description, FormPurpose purpose)
    : grid(form, std::string(description.grid), description.GridColumns()),
      association(form, description),
      qbId(form, std::string(description.qbIdControl)),
      id(form, std::string(description.idControl)),
      add(form, std::string(description.addCommand), "&Add"),
      modify(form, std::string(description.modifyCommand), "&Modify"),
      remove(form, std::string(description.deleteCommand), "&Delete"),
      form_(form),
      description_(description),
      columns_(description),
      purpose_(purpose),
      fields_(ControlsOf(form, description)),
      fieldSnapshot_(kSnapshotCells) {
    for (TextControl* key : {&qbId, &id}) key->SetLocked(true);
    if (purpose == FormPurpose::ChangeTracking) modify.SetVisible(description.modifiesTracked);
}

void DocumentationTab::Connect(ApplicationState& state, Prompter& prompter) {
    RecordTab::Connect(state, prompter);
    ConnectCommands();
    grid.OnEdit([this] { ShowRow(grid.SelectedRow()); });
    grid.OnActivate([this] { ShowRow(grid.SelectedRow()); });
    for (std::size_t i = 0; i < fields_.size(); ++i)
        if (PickList(i) != nullptr) TrackChanges(state, {PickList(i)});
    if (Narrows())
        ConnectNarrowing();
    else
        PickList(0)->OnPick([this] { FillFromPick(0); });
}

void DocumentationTab::OfferLists() {
    ReloadList();
    for (const std::size_t field : description_.narrowing) {
        PickList(field)->NeverFilled();
        if (field != 0) PickList(field)->Clear();
    }
}

void DocumentationTab::Clear() {
    const ChangeScope scope(form_);
    pending_ = {};
    grid.ClearRows();
    ShowRow(0);
}

void DocumentationTab::ClearForNextEntry() {
    if (!KeptForNextEntry(State().gPrefSaveReferences)) Clear();
}

void DocumentationTab::EnterMode(EditorMode mode) {
    const ChangeScope scope(form_);
    pending_ = {};
    if (mode == EditorMode::Input) {
        for (int row = 0; grid.IsDataRow(row); ++row)
            grid.SetCell(static_cast<std::size_t>(row), columns_.changeTrack, "0");
    }
    hasDataSet_ = mode != EditorMode::None;
    SetFieldsEnabled(!ShowsTracked());
}

// Whether the selected row belongs to a change track.
bool DocumentationTab::ShowsTracked() const {
    const GridControl::Row* cells = grid.SelectedData();
    return cells != nullptr && (*cells)[columns_.changeTrack] != "0";
}

void DocumentationTab::Load(int qb_id) {
    changeTrack_ = 0;
    ShowStored(qb_id, {});
}

void DocumentationTab::LoadOfChangeTrack(int qb_id, int changeTrackId) {
    changeTrack_ = changeTrackId;
    ShowStored(qb_id, changeTrackId);
}

void DocumentationTab::ShowStored(int qb_id, std::optional<int> changeTrackId) {
    const ChangeScope scope(form_);
    pending_ = {};
    grid.ClearRows();
    if (State().gDatabase && changeTrackId != 0) {
        Attempt(Outside(), [&] {
            auto rows = ReadDocumentRows(*State().gDatabase, description_, qb_id,
                                         ScientificName(State().currentTaxon));
            if (changeTrackId) {
                const std::string track = std::to_string(*changeTrackId);
                std::erase_if(rows, [&](const auto& cells) { return cells[columns_.changeTrack] != track; });
            }
            grid.SetDataRows(std::move(rows));
        });
    }
    SelectAndShow(0);
}

void DocumentationTab::SelectAndShow(int row) {
    grid.SetSelectedRow(row);
    ShowRow(row);
}

std::string DocumentationTab::NameOfTaxon() const {
    return nameSource_ ? nameSource_() : ScientificName(State().currentTaxon);
}

void DocumentationTab::ReloadList() {
    PickListControl& list = *PickList(0);
    list.SetChoicesLater([this] {
        return ReadValues(
            fmt::format("SELECT DISTINCT {} FROM {}", description_.fields[0].column, description_.kind.table),
            false);
    });
    list.Refilled();
}

void DocumentationTab::ShowRow(int row) {
    const ChangeScope scope(form_);
    bool ofChangeTrack = false;
    if (grid.IsDataRow(row)) {
        const GridControl::Row cells = grid.Rows()[static_cast<std::size_t>(row)];
        ShowCells(cells);
        association.Show(cells[columns_.association], cells[DocumentColumns::name]);
        ofChangeTrack = cells[columns_.changeTrack] != "0";
    } else {
        ClearFields();
    }
    if (purpose_ == FormPurpose::Record) SetFieldsEnabled(!ofChangeTrack);
}

void DocumentationTab::ClearFields() {
    const ChangeScope scope(form_);
    ShowCells(GridControl::Row(columns_.count));
    association.Show(kScientificName, {});
}

std::string DocumentationTab::TextOf(std::size_t field) const {
    const Control* control = fields_.at(field).get();
    if (const auto* text = dynamic_cast<const TextControl*>(control)) return text->Text();
    if (const auto* check = dynamic_cast<const CheckControl*>(control)) return check->Value() ? "Yes" : "No";
    return dynamic_cast<const ComboControl&>(*control).Text();
}

void DocumentationTab::SetText(std::size_t field, std::string_view text) {
    Control* control = fields_.at(field).get();
    if (auto* line = dynamic_cast<TextControl*>(control)) return line->SetText(text);
    if (auto* check = dynamic_cast<CheckControl*>(control)) return check->SetValue(text == kYes);
    dynamic_cast<ComboControl&>(*control).SetText(text);
}

void DocumentationTab::ShowCells(const GridControl::Row& cells) {
    fieldSnapshot_ = cells;
    fieldSnapshot_.resize(kSnapshotCells);
    for (std::size_t i = 0; i < fields_.size(); ++i) SetText(i, cells[DocumentColumns::OfField(i)]);
    qbId.SetText(cells[columns_.qbId]);
    id.SetText(cells[columns_.id]);
}

void DocumentationTab::SetFieldsEnabled(bool enabled) {
    for (ButtonControl* command : {&add, &remove}) command->SetEnabled(hasDataSet_ && enabled);
    modify.SetEnabled(hasDataSet_ && (enabled || description_.modifyAlwaysEnabled));
    for (std::size_t i = 0; i < fields_.size(); ++i)
        fields_[i]->SetEnabled(enabled || description_.fields[i].alwaysEnabled);
}

// Fills the fields of the document from `firstField` on, and its ids.
void DocumentationTab::TakeDocument(const store::Recordset& row, std::size_t firstField) {
    const ChangeScope scope(form_);
    for (std::size_t i = firstField; i < fields_.size(); ++i)
        if (!description_.fields[i].ofLink) SetText(i, row[description_.fields[i].column].AsText());
    qbId.SetText(row[description_.kind.idColumn].AsText());
    id.SetText(row[description_.kind.authorityIdColumn].AsText());
}

std::vector<ChoiceControl::Choice> DocumentationTab::ReadValues(const std::string& select,
                                                                bool skipNull) const {
    std::vector<ChoiceControl::Choice> choices;
    if (!State().gDatabase) return choices;
    const WaitCursor waiting(Outside());
    const bool read = Attempt(Outside(), [&] {
        const auto rows = State().gDatabase->OpenRecordset(select, store::RecordsetType::ForwardOnly);
        for (; !rows->Eof(); rows->MoveNext()) {
            const Value value = rows->At(0);
            if (!skipNull || !value.IsNull()) choices.push_back({value.AsText(), 0});
        }
    });
    if (!read) choices.clear();
    return choices;
}

void DocumentationTab::FillFromPick(std::size_t field) {
    if (!State().gDatabase) return;
    Attempt(Outside(), [&] {
        if (Narrows())
            TakeOnlyMatch(field);
        else
            TakeFirst();
    });
}

// The first document that the stored query finds for the value in the first field.
void DocumentationTab::TakeFirst() {
    const auto row = State()
                         .gDatabase->OpenQueryDef(description_.pickQuery)
                         .Set(description_.pickParameter, TextOf(0))
                         .CreateSnapshot();
    if (!row->Eof()) TakeDocument(*row, 1);
}

}  // namespace quillon::documentation
