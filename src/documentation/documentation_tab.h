// A tab for the documents of a taxon: publications, experts or other sources. One class serves all three; a
// description names the fields and controls of each.
//
// RecView has three of these tabs, and the form for change tracks has the same three. The commands change
// only the grid and the lists of what a save has to remove; they write nothing to the DataSet.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/entry_grid.h"
#include "core/record_tab.h"
#include "documentation/association.h"
#include "documentation/document_description.h"
#include "documentation/pick_list.h"
#include "store/recordset.h"

namespace quillon::documentation {

// The purpose of the form that contains the tab. A row that belongs to a change track is read-only in a
// record and editable in the change tracking form.
enum class FormPurpose { Record, ChangeTracking };

// The links of rows that the user has deleted, for the next save.
struct PendingDeletes {
    std::vector<int> ofName;                 // document ids
    std::vector<std::string> ofVernaculars;  // document id, "|", qb_vern_id
    std::vector<int> ofChangeTrack;          // document ids; only in the change tracking form
    bool operator==(const PendingDeletes&) const = default;
};

// The ids of the document that a save stored or found last; 0 before the first.
struct DocumentIds {
    int qbId = 0, id = 0;
    bool operator==(const DocumentIds&) const = default;
};

class DocumentationTab : public RecordTab {
public:
    // `description` outlives the tab.
    DocumentationTab(Form& form, const DocumentDescription& description,
                     FormPurpose purpose = FormPurpose::Record);

    void Connect(ApplicationState& state, Prompter& prompter) override;
    const Control& FirstControl() const override { return grid; }
    // The values of the first field are read when its list is first used; the other lists are empty.
    void OfferLists() override;
    void Clear() override;
    void ClearForNextEntry() override;
    // Loads the rows of the taxon `qb_id`, with the name in CurrentTaxon, and selects and shows the first.
    void Load(int qb_id) override;
    // The same for the rows that belong to a change track of the taxon. Rows added later belong to it too; 0
    // for a new track, which has none yet.
    void LoadOfChangeTrack(int qb_id, int changeTrackId);
    // The rows that a new record keeps belong to no change track, and nothing is pending for it.
    void EnterMode(EditorMode mode) override;
    bool SaveNew(const records::RecordStore& records) override { return InsertAllRows(records, 0); }
    void SaveChanges(const records::RecordStore& records) override { SaveGrid(records, 0); }
    void RefreshLists() override { ReloadList(); }

    // What SaveNew and SaveChanges do, for links that belong to a change track. The first row that cannot be
    // stored ends InsertAllRows with false; SaveGrid ends with false where a former link cannot be removed.
    bool InsertAllRows(const records::RecordStore& records, int changeTrackId);
    bool SaveGrid(const records::RecordStore& records, int changeTrackId);
    DocumentIds LastDocIds() const { return lastDocIds_; }

    // Reloads all values of the first field into its list and keeps its text. For use after a save or an
    // import.
    void ReloadList();
    // Sets the vernaculars to choose from, as "name [language]" with their ids, 0 for one that is not stored
    // yet. The picker keeps its text.
    void OfferVernaculars(const std::vector<ChoiceControl::Choice>& vernaculars) {
        association.Offer(vernaculars);
    }
    // Empties a narrowing field and fills its list with the values that match the other fields. A failure is
    // reported and leaves the list empty.
    void Narrow(std::size_t field);
    // Fills the other fields from the document that has the picked value. Nothing changes when there is no
    // such document or, for fields that narrow one another, more than one. A failure is reported.
    void FillFromPick(std::size_t field);
    // Copies a grid row to the fields. The empty row and an invalid number clear them.
    void ShowRow(int row);
    // Empties the fields but does not disable them.
    void ClearFields();

    // The commands. Each makes the record a changed one, also when it is refused. A refusal is a message and
    // changes nothing else; the field at fault takes the focus.
    //
    // Adds what the fields show as the last row, or the last two for "Both".
    void Add();
    // Replaces the selected row by what the fields show. All rows of one document show the same document.
    // Does not require the fields that Add requires.
    void Modify();
    // Removes the selected row and selects the one before.
    void Delete();

    // The vernacular "name [language]" is gone: its rows leave the grid. For this and the next,
    // OfferVernaculars may have been called before or not.
    void RemoveVernacularRows(const std::string& name);
    // A stored vernacular has another "name [language]".
    void RenameVernacular(int qb_vern_id, const std::string& name);
    // So has one that is not stored yet.
    void RenameNewVernacular(const std::string& old, const std::string& name);
    // The name that new rows show. Without this it is that of CurrentTaxon.
    void TakeNameFrom(std::function<std::string()> source) { nameSource_ = std::move(source); }

    const PendingDeletes& Pending() const { return pending_; }
    // The cells that were shown in the fields last, up to 20 of them; empty texts for a cleared form.
    const GridControl::Row& FieldSnapshot() const { return fieldSnapshot_; }

    const DocumentDescription& Description() const { return description_; }
    // The control of a field, by its index in the description.
    Control& Field(std::size_t field) { return *fields_.at(field); }
    // nullptr when the field is of another kind.
    PickListControl* PickList(std::size_t field) { return dynamic_cast<PickListControl*>(&Field(field)); }
    // The value of a field as its grid cell shows it: "Yes" or "No" for a check box.
    std::string TextOf(std::size_t field) const;
    void SetText(std::size_t field, std::string_view text);

    EntryGridControl grid;
    Association association;
    TextControl qbId, id;  // locked
    ButtonControl add, modify, remove;

private:
    void ConnectCommands();
    bool Refuse(std::string_view message, Control& field);
    bool HasRequiredFields();
    bool HasVernacular();
    bool IsSecondOriginal(int except) const;
    bool IsOriginalOfVernacular() const;
    std::vector<std::string_view> ChosenAssociations() const;
    bool EqualsFields(const GridControl::Row& cells, std::string_view word) const;
    bool IsDuplicate(int except);
    GridControl::Row NewRow(std::string_view word) const;
    GridControl::Row ReplacementOf(const GridControl::Row& old, std::string_view word) const;
    void ShareDocument(const GridControl::Row& cells);
    void RememberDeleted(const GridControl::Row& cells);
    void RenameRow(int row, const std::string& name);
    void RemovePending(const records::RecordStore& records);
    bool SaveRows(const records::RecordStore& records, int changeTrackId);
    void SelectAndShow(int row);
    bool ShowsTracked() const;
    const GridControl::Row& CellsOf(int row) const { return grid.Rows()[static_cast<std::size_t>(row)]; }
    std::string NameOfTaxon() const;

    void ShowStored(int qb_id, std::optional<int> changeTrackId);
    void ShowCells(const GridControl::Row& cells);
    void SetFieldsEnabled(bool enabled);
    void TakeDocument(const store::Recordset& row, std::size_t firstField);
    std::vector<ChoiceControl::Choice> ReadValues(const std::string& select, bool skipNull) const;

    // The fields that narrow one another.
    bool Narrows() const { return !description_.narrowing.empty(); }
    void ConnectNarrowing();
    void TakeFirst();
    void TakeOnlyMatch(std::size_t field);
    // The condition for the value of a field; "" while the field is empty.
    std::string TermOf(std::size_t field) const;

    Form& form_;
    const DocumentDescription& description_;
    const DocumentColumns columns_;
    const FormPurpose purpose_;
    std::vector<std::unique_ptr<Control>> fields_;
    std::function<std::string()> nameSource_;
    int changeTrack_ = 0;  // of new rows
    PendingDeletes pending_;
    DocumentIds lastDocIds_;
    bool hasDataSet_ = true;
    GridControl::Row fieldSnapshot_;
};

}  // namespace quillon::documentation
