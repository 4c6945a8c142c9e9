// What the pages of the record have in common: how their widgets are made and laid out. The pages hold no
// rules and no texts but accessible names: the binder gives every widget what its control model says.
#pragma once

#include <QtWidgets>
#include <vector>

#include "ui/named.h"

namespace quillon::ui {

// The label of a field, which its access key leads to.
QLabel* FieldLabel(QWidget* parent, const char* name, QWidget* field);
// A table of rows that are chosen whole and not edited, each on one line. The last column takes the width
// that the others leave.
QTableWidget* RowTable(QWidget* parent, const char* name, const QString& accessibleName);
// An empty page with its layout, ready to take the table and what stands below it.
QVBoxLayout* PageLayout(QWidget* page);
// Labels in the first column, fields in the second, which grows.
QGridLayout* FieldLayout();
// Several lines of text. Tab moves on to the next field.
QPlainTextEdit* TextBox(QWidget* parent, const char* name);
// The height at which a text box shows so many lines.
int HeightOf(const QPlainTextEdit& box, int lines);
QHBoxLayout* ButtonRow(QWidget* parent, const std::vector<const char*>& names);

}  // namespace quillon::ui
