// The vernaculars tab of a record: the common names of a taxon in a grid, and the fields in which one of them
// is entered.
//
// The commands change only the grid and the list of removed names; a save stores them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/entry_grid.h"
#include "core/record_tab.h"
#include "core/signal.h"

namespace quillon::editor {

// The columns of grdVernacular. The ids of a name that is not stored yet are "0".
struct VernacularColumn {
    static constexpr std::size_t kName = 0, kLanguage = 1, kApproved = 2;
    static constexpr std::size_t kQbId = 3, kQbVernId = 4, kVernId = 5;
};

class VernacularTab : public RecordTab {
public:
    explicit VernacularTab(Form& form);

    void Connect(ApplicationState& state, Prompter& prompter) override;
    const Control& FirstControl() const override { return grdVernacular; }
    // The languages of the DataSet are read when the list is first used.
    void OfferLists() override;
    void Clear() override;
    void ClearForNextEntry() override;
    void Load(int qb_id) override;
    // The names that a new record keeps from another one are new rows.
    void EnterMode(EditorMode mode) override;
    bool SaveNew(const records::RecordStore& records) override;
    void SaveChanges(const records::RecordStore& records) override;
    void RefreshLists() override { OfferLists(); }

    // The names in the grid have changed. Passes them as "name [language]" with their qb_vern_id, for the
    // pickers of the documentation tabs.
    Signal<const std::vector<ChoiceControl::Choice>&> NamesChanged;
    // The next three are emitted before NamesChanged, while listeners still have the old list. Names are
    // passed as "name [language]".
    //
    // A name has been deleted from the grid.
    Signal<const std::string&> NameDeleted;
    // The stored name with this qb_vern_id has been renamed.
    Signal<int, const std::string&> NameRenamed;
    // A name that is not stored yet has been renamed.
    Signal<const std::string& /*old*/, const std::string& /*name*/> NewNameRenamed;
    // Emits NamesChanged with the names in the grid. With `sayWhenNone`, for the commands that add or change
    // a name, reports when there is none.
    void OfferNames(bool sayWhenNone = false);

    EntryGridControl grdVernacular;
    LabelControl lblVName;
    TextControl txtVName;
    LabelControl lblLanguage;
    ComboControl cboLanguage;
    CheckControl chkApproved;
    ButtonControl cmdVAdd, cmdVModify, cmdVDelete;

    // The qb_vern_id of the names removed from the grid since the record was loaded.
    std::vector<int> removed;

private:
    void Add();
    void Modify();
    void Delete();
    void EmitRenamed(int qb_vern_id, const std::string& old, const std::string& name);
    // The fields as a row with the ids of `from`. Nothing after a message when they cannot be taken.
    std::optional<GridControl::Row> CheckedRow(const GridControl::Row& from, int selected);
    bool HoldsRow(const GridControl::Row& row, int besides) const;
    // False when the user wants to keep a name that documents are linked to.
    bool ConfirmDelete(int qb_vern_id);
    // Shows the selected row in the fields; empties them for the empty row or none.
    void ShowRow();
};

}  // namespace quillon::editor
