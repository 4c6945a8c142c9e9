// Binds a table widget to a GridControl. Only cells that differ are set, so that a large grid stays quick.
#include "ui/binder_parts.h"
#include "ui/cut_text_tips.h"
#include "ui/guard.h"

namespace quillon::ui {

namespace {

void ShowColumns(const GridControl& model, QTableWidget& shown) {
    const auto& columns = model.Columns();
    shown.setColumnCount(static_cast<int>(columns.size()));
    for (int column = 0; column < shown.columnCount(); ++column) {
        const auto& wanted = columns[static_cast<std::size_t>(column)];
        const QTableWidgetItem* heading = shown.horizontalHeaderItem(column);
        if (heading == nullptr && wanted.width > 0)
            shown.setColumnWidth(column, shown.fontMetrics().averageCharWidth() * wanted.width);
        if (heading == nullptr || heading->text() != ToQt(wanted.heading))
            shown.setHorizontalHeaderItem(column, new QTableWidgetItem(ToQt(wanted.heading)));
        if (shown.isColumnHidden(column) != wanted.hidden) shown.setColumnHidden(column, wanted.hidden);
    }
}

// Sets only cells that differ, so that selecting or adding a row does not rebuild the table.
void ShowCells(const GridControl& model, QTableWidget& shown) {
    shown.setRowCount(static_cast<int>(model.Rows().size()));
    for (int row = 0; row < shown.rowCount(); ++row) {
        for (int column = 0; column < shown.columnCount(); ++column) {
            const QString text =
                ToQt(model.Cell(static_cast<std::size_t>(row), static_cast<std::size_t>(column)));
            QTableWidgetItem* cell = shown.item(row, column);
            if (cell == nullptr)
                shown.setItem(row, column, new QTableWidgetItem(text));
            else if (cell->text() != text)
                cell->setText(text);
        }
    }
}

void ShowSelection(const GridControl& model, QTableWidget& shown) {
    const int row = model.SelectedRow();
    if (row < 0) {
        shown.clearSelection();
        shown.setCurrentItem(nullptr);  // so that a click on the same row is reported again
    } else if (shown.currentRow() != row || !shown.selectionModel()->isRowSelected(row)) {
        shown.selectRow(row);
    }
}

void ShowGrid(const GridControl& model, QTableWidget& shown) {
    ShowCommon(model, shown);
    ShowColumns(model, shown);
    ShowCells(model, shown);
    ShowSelection(model, shown);
}

}  // namespace

void BindGrid(GridControl& control, const QWidget& window) {
    auto* table = Partner<QTableWidget>(window, control);
    if (table == nullptr) return;
    new CutTextTips(*table);
    Mirror(control, *table, ShowGrid);
    Connect(table, &QTableWidget::currentCellChanged, table,
            [&control](int row, int, int, int) { control.UserSelectRow(row); });
    Connect(table, &QTableWidget::cellActivated, table,
            [&control](int row, int) { control.UserActivateRow(row); });
}

}  // namespace quillon::ui
