// A tab for the documents of a taxon: publications, experts or other sources. One class over three
// descriptions, with the controls of the description in place of members.
//
// RecView composes three of them, the form for change tracks the same three. Nothing here writes to the
// DataSet: the commands, which are not there yet and therefore disabled, will change the grid, and the save
// will store what stands there.
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

// What the form that composes the tab is for. A row that belongs to a change track is read-only in a record,
// and is what the other form edits.
enum class FormPurpose { Record, ChangeTracking };

class DocumentationTab : public RecordTab {
public:
    // `description` outlives the tab.
    DocumentationTab(Form& form, const DocumentDescription& description,
                     FormPurpose purpose = FormPurpose::Record);

    void Connect(ApplicationState& state, Prompter& prompter) override;
    const Control& FirstControl() const override { return grid; }
    // The values of the first field are read when its list is first looked at; the other lists are empty.
    void OfferLists() override;
    void Clear() override;
    void ClearForNextEntry() override;
    // The rows of the taxon `qb_id`, under the name of CurrentTaxon; the first of them is selected and shown.
    void Load(int qb_id) override;

    // All values of the first field into its list, which keeps its text; after a save and an import.
    void ReloadList();
    // The vernaculars to choose from, as "name [language]" with their ids. The picker keeps its text.
    void OfferVernaculars(const std::vector<ChoiceControl::Choice>& vernaculars) {
        association.Offer(vernaculars);
    }
    // Refills the list of a field that narrows with the others by what goes with them; the field is empty
    // afterwards. A failure is reported, and leaves the list empty.
    void Narrow(std::size_t field);
    // What a pick in the field brings: the other fields of the document that has the value. With no such
    // document, or where fields narrow one another with several, nothing changes. A failure is reported.
    void FillFromPick(std::size_t field);
    // Copies a row of the grid to the fields; the empty row, and a number that is no row, clears them.
    void ShowRow(int row);
    // Empties the fields; what is enabled stays so.
    void ClearFields();

    const DocumentDescription& Description() const { return description_; }
    // The control of a field, by the index that the field has in the description.
    Control& Field(std::size_t field) { return *fields_.at(field); }
    // nullptr when the field is of another kind.
    PickListControl* PickList(std::size_t field) { return dynamic_cast<PickListControl*>(&Field(field)); }
    // What the field shows, as its cell in the grid has it: "Yes" or "No" for a check box.
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
    // The condition on a field for what it shows; "" while it is empty.
    std::string TermOf(std::size_t field) const;

    Form& form_;
    const DocumentDescription& description_;
    const DocumentColumns columns_;
    const FormPurpose purpose_;
    std::vector<std::unique_ptr<Control>> fields_;
};

}  // namespace quillon::documentation
