// Functions that make and lay out the widgets of the record's pages. The pages hold no logic, and no texts
// except accessible names: the binder fills every widget from its control model.
#pragma once

#include <QtWidgets>
#include <vector>

#include "ui/named.h"

namespace quillon::ui {

// The label of a field, with the field as its buddy.
QLabel* FieldLabel(QWidget* parent, const char* name, QWidget* field);
// A read-only table with selection by row, one line each. The last column takes the remaining width.
QTableWidget* RowTable(QWidget* parent, const char* name, const QString& accessibleName);
// Sets up an empty page; the caller adds the table and what is below it.
QVBoxLayout* PageLayout(QWidget* page);
// Labels in the first column, fields in the second, which grows.
QGridLayout* FieldLayout();
// A box for several lines of text. Tab moves to the next field.
QPlainTextEdit* TextBox(QWidget* parent, const char* name);
// The height at which a text box shows `lines` lines.
int HeightOf(const QPlainTextEdit& box, int lines);
QHBoxLayout* ButtonRow(QWidget* parent, const std::vector<const char*>& names);

}  // namespace quillon::ui
