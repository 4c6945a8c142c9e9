// A tab for the documents of a taxon: publications, experts or other sources. One class serves all three; a
// description names the fields and controls of each.
//
// RecView has three of these tabs, and the form for change tracks will have the same three. Nothing here
// writes to the DataSet: the commands, disabled until they exist, will change the grid, and a save will store
// its rows.
#pragma once

#include <memory>
#include <string>
#include <string_view>
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

    // Reloads all values of the first field into its list and keeps its text. For use after a save or an
    // import.
    void ReloadList();
    // Sets the vernaculars to choose from, as "name [language]" with their ids. The picker keeps its text.
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
};

}  // namespace quillon::documentation
