// The commands of a documentation tab: each changes the grid and the lists of what a save has to remove.
#include <fmt/format.h>

#include <algorithm>

#include "documentation/documentation_tab.h"

namespace quillon::documentation {

namespace {

constexpr std::string_view kYes = "Yes";
constexpr std::string_view kOneOriginal = "Only one Publication can be designated the Original Descriptor.";
constexpr std::string_view kPickVernacular = "You must pick a vernacular!";
constexpr std::string_view kNoOriginalOfVernacular =
    "A vernacular cannot have an 'Original Description Indicator'";
constexpr std::string_view kNoOriginalToVernacular =
    "You cannot associate an 'original description indicator' to a vernacular";

int IdOf(const std::string& cell) {
    return static_cast<int>(Value(cell).AsLong());
}

}  // namespace

void DocumentationTab::ConnectCommands() {
    add.OnClick([this] { Add(); });
    modify.OnClick([this] { Modify(); });
    remove.OnClick([this] { Delete(); });
}

// Moves the focus to the field at fault.
bool DocumentationTab::Refuse(std::string_view message, Control& field) {
    Outside().Message(message);
    field.TakeFocus();
    return false;
}

bool DocumentationTab::HasRequiredFields() {
    for (const RequiredField& required : description_.required)
        if (TextOf(required.field).empty()) return Refuse(required.message, Field(required.field));
    return true;
}

// True when the association needs no vernacular, or one is chosen.
bool DocumentationTab::HasVernacular() {
    if (association.words.Text() == kScientificName || !association.picker.Text().empty()) return true;
    return Refuse(kPickVernacular, association.picker);
}

// Whether the fields, and a row other than `except`, describe the name originally.
bool DocumentationTab::IsSecondOriginal(int except) const {
    const std::size_t field = description_.LinkField();
    if (field == DocumentDescription::kNoField || TextOf(field) != kYes) return false;
    for (int row = 0; grid.IsDataRow(row); ++row)
        if (row != except && CellsOf(row)[DocumentColumns::OfField(field)] == kYes) return true;
    return false;
}

// Whether the fields describe a vernacular originally, which no document does.
bool DocumentationTab::IsOriginalOfVernacular() const {
    const std::size_t field = description_.LinkField();
    return field != DocumentDescription::kNoField && TextOf(field) == kYes &&
           association.words.Text() == kVernacular;
}

std::vector<std::string_view> DocumentationTab::ChosenAssociations() const {
    if (association.words.Text() == kBoth) return {kScientificName, kVernacular};
    return {association.words.Text()};
}

// Whether the row shows the same document as the fields, for the same name.
bool DocumentationTab::EqualsFields(const GridControl::Row& cells, std::string_view word) const {
    if (cells[columns_.association] != word) return false;
    if (word == kVernacular && cells[DocumentColumns::name] != association.picker.Text()) return false;
    for (std::size_t i = 0; i < fields_.size(); ++i)
        if (!description_.fields[i].ofLink && cells[DocumentColumns::OfField(i)] != TextOf(i)) return false;
    return true;
}

// Reports each row other than `except` that is there already.
bool DocumentationTab::IsDuplicate(int except) {
    bool duplicate = false;
    for (int row = 0; grid.IsDataRow(row); ++row) {
        if (row == except) continue;
        for (const std::string_view word : ChosenAssociations()) {
            if (!EqualsFields(CellsOf(row), word)) continue;
            Outside().Message(fmt::format("Attempting to insert a duplicate record for {}", word));
            duplicate = true;
        }
    }
    return duplicate;
}

// The row of the fields for one association, without ids.
GridControl::Row DocumentationTab::NewRow(std::string_view word) const {
    GridControl::Row cells(columns_.count);
    const bool ofVernacular = word == kVernacular;
    cells[DocumentColumns::name] = ofVernacular ? association.picker.Text() : NameOfTaxon();
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const bool absent = ofVernacular && description_.fields[i].ofLink;
        cells[DocumentColumns::OfField(i)] = absent ? "No" : TextOf(i);
    }
    cells[columns_.qbId] = cells[columns_.id] = cells[columns_.origQbId] = "0";
    cells[columns_.changeTrack] = std::to_string(changeTrack_);
    cells[columns_.association] = word;
    cells[columns_.qbVernId] = std::to_string(ofVernacular ? association.PickedId() : 0);
    return cells;
}

void DocumentationTab::Add() {
    const ChangeScope scope(form_);
    State().RecordDirty = true;
    if (!HasRequiredFields()) return;
    if (IsSecondOriginal(-1)) {
        Refuse(kOneOriginal, Field(description_.LinkField()));
        return;
    }
    if (!HasVernacular()) return;
    if (IsOriginalOfVernacular()) {
        Refuse(kNoOriginalOfVernacular, Field(description_.LinkField()));
        return;
    }
    if (IsDuplicate(-1)) return;
    for (const std::string_view word : ChosenAssociations()) grid.AddDataRow(NewRow(word));
    SelectAndShow(static_cast<int>(grid.DataCount()) - 1);
}

// The row of the fields for one association, in place of a row whose ids it keeps. The id of the vernacular
// stays that of the stored link, by which a save knows what the row was associated with.
GridControl::Row DocumentationTab::ReplacementOf(const GridControl::Row& old, std::string_view word) const {
    GridControl::Row cells = NewRow(word);
    for (const std::size_t column :
         {columns_.qbId, columns_.id, columns_.changeTrack, columns_.qbVernId, columns_.origQbId})
        cells[column] = old[column].empty() ? "0" : old[column];
    return cells;
}

// Lets every other row of the document in `cells` show what that row shows.
void DocumentationTab::ShareDocument(const GridControl::Row& cells) {
    if (IdOf(cells[columns_.qbId]) == 0) return;
    for (int row = 0; grid.IsDataRow(row); ++row) {
        GridControl::Row other = CellsOf(row);
        if (other[columns_.qbId] != cells[columns_.qbId] || other[columns_.id] != cells[columns_.id])
            continue;
        for (std::size_t i = 0; i < fields_.size(); ++i) {
            const std::size_t column = DocumentColumns::OfField(i);
            if (!description_.fields[i].ofLink) other[column] = cells[column];
        }
        grid.ReplaceRow(static_cast<std::size_t>(row), std::move(other));
    }
}

void DocumentationTab::Modify() {
    const ChangeScope scope(form_);
    State().RecordDirty = true;
    const int row = grid.SelectedRow();
    if (!grid.IsDataRow(row) || !HasVernacular()) return;
    if (IsSecondOriginal(row)) {
        Refuse(kOneOriginal, Field(description_.LinkField()));
        return;
    }
    if (IsOriginalOfVernacular()) {
        Refuse(kNoOriginalToVernacular, Field(description_.LinkField()));
        return;
    }
    if (IsDuplicate(row)) return;
    const GridControl::Row old = CellsOf(row);
    const bool both = association.words.Text() == kBoth;
    const std::string word = both ? old[columns_.association] : association.words.Text();
    const GridControl::Row replacement = ReplacementOf(old, word);
    grid.ReplaceRow(static_cast<std::size_t>(row), replacement);
    if (both)
        grid.InsertRow(static_cast<std::size_t>(row) + 1,
                       NewRow(word == kScientificName ? kVernacular : kScientificName));
    ShareDocument(replacement);
    SelectAndShow(row);
}

// Remembers the link that a save removes. A row that was modified stands for the link that is stored.
void DocumentationTab::RememberDeleted(const GridControl::Row& cells) {
    const int qb_id = IdOf(cells[columns_.qbId]);
    if (purpose_ == FormPurpose::ChangeTracking) {
        pending_.ofChangeTrack.push_back(qb_id);
        return;
    }
    const int qb_vern_id = IdOf(cells[columns_.qbVernId]);
    const bool ofVernacular = qb_id != 0 ? qb_vern_id != 0 : cells[columns_.association] == kVernacular;
    if (ofVernacular)
        pending_.ofVernaculars.push_back(fmt::format("{}|{}", qb_id, qb_vern_id));
    else
        pending_.ofName.push_back(qb_id);
}

void DocumentationTab::Delete() {
    const ChangeScope scope(form_);
    State().RecordDirty = true;
    const int row = grid.SelectedRow();
    if (!grid.IsDataRow(row)) return;
    RememberDeleted(CellsOf(row));
    grid.RemoveRow(static_cast<std::size_t>(row));
    SelectAndShow(std::max(row - 1, 0));
}

// The links of the vernacular go with it. A row that was modified to it is stored otherwise.
void DocumentationTab::RemoveVernacularRows(const std::string& name) {
    const ChangeScope scope(form_);
    if (association.picker.Text() == name) association.picker.SetText("");
    const int qb_vern_id = association.KnownId(name);
    for (int row = static_cast<int>(grid.DataCount()) - 1; row >= 0; --row) {
        const GridControl::Row& cells = CellsOf(row);
        if (cells[columns_.association] != kVernacular || cells[DocumentColumns::name] != name) continue;
        const bool goesWithIt = qb_vern_id != 0 && IdOf(cells[columns_.qbVernId]) == qb_vern_id;
        if (IdOf(cells[columns_.qbId]) != 0 && !goesWithIt) RememberDeleted(cells);
        grid.RemoveRow(static_cast<std::size_t>(row));
    }
    if (grid.SelectedRow() < 0) SelectAndShow(0);
}

void DocumentationTab::RenameRow(int row, const std::string& name) {
    const std::string old = CellsOf(row)[DocumentColumns::name];
    grid.SetCell(static_cast<std::size_t>(row), DocumentColumns::name, name);
    if (row == grid.SelectedRow() && association.picker.Text() == old) association.picker.SetText(name);
}

// A row shows a vernacular by its name: the id in it is that of the stored link, which may be of another one
// since the row was modified.
void DocumentationTab::RenameVernacular(int qb_vern_id, const std::string& name) {
    const ChangeScope scope(form_);
    const std::string former = association.FormerName(qb_vern_id);
    for (int row = 0; grid.IsDataRow(row); ++row) {
        const GridControl::Row& cells = CellsOf(row);
        if (cells[columns_.association] != kVernacular) continue;
        const int shown = association.KnownId(cells[DocumentColumns::name]);
        const bool isShown = shown == qb_vern_id || cells[DocumentColumns::name] == former;
        const bool isLoaded = shown == 0 && IdOf(cells[columns_.qbVernId]) == qb_vern_id;
        if (isShown || isLoaded) RenameRow(row, name);
    }
}

void DocumentationTab::RenameNewVernacular(const std::string& old, const std::string& name) {
    const ChangeScope scope(form_);
    for (int row = 0; grid.IsDataRow(row); ++row) {
        const GridControl::Row& cells = CellsOf(row);
        if (cells[columns_.association] == kVernacular && cells[DocumentColumns::name] == old)
            grid.SetCell(static_cast<std::size_t>(row), DocumentColumns::name, name);
    }
    if (association.picker.Text() == old) association.picker.SetText(name);
}

}  // namespace quillon::documentation
