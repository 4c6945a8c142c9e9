// A grid whose last row is always empty, for entering a new row. The rows before it are data.
//
// The tabs of a record use it. Rows count from 0; the user may select the empty row like any other.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "core/controls.h"

namespace quillon {

class EntryGridControl : public GridControl {
public:
    EntryGridControl(Form& form, std::string name, std::vector<Column> columns)
        : GridControl(form, std::move(name), std::move(columns)) {
        ClearRows();
    }

    // Keeps the empty row.
    void ClearRows() { SetRows({Row()}); }
    // Replaces the data rows.
    void SetDataRows(std::vector<Row> rows) {
        rows.emplace_back();
        SetRows(std::move(rows));
    }
    // Adds a data row after all others.
    void AddDataRow(Row row) { InsertRow(Rows().size() - 1, std::move(row)); }
    // Removes the selected row and selects the next one. Returns false and changes nothing when it is not a
    // data row.
    bool RemoveSelectedData() {
        const int row = SelectedRow();
        if (!IsDataRow(row)) return false;
        RemoveRow(static_cast<std::size_t>(row));
        SetSelectedRow(row);
        return true;
    }
    // The number of data rows.
    std::size_t DataCount() const { return Rows().size() - 1; }
    // False for the empty row and an invalid number.
    bool IsDataRow(int row) const { return row >= 0 && static_cast<std::size_t>(row) + 1 < Rows().size(); }
    // The cells of the selected row; nullptr when it is not a data row.
    const Row* SelectedData() const {
        return IsDataRow(SelectedRow()) ? &Rows()[static_cast<std::size_t>(SelectedRow())] : nullptr;
    }
};

}  // namespace quillon
