// What the pages of the record have in common: how their widgets are made and laid out. The pages hold no
// rules and no texts but accessible names: the binder gives every widget what its control model says.
#pragma once

#include <QtWidgets>
#include <initializer_list>

#include "ui/named.h"

namespace quillon::ui {

// The label of a field, which its access key leads to.
QLabel* FieldLabel(QWidget* parent, const char* name, QWidget* field);
// A table of rows that are chosen whole and not edited, each on one line. `characters` are the widths of the
// visible columns but the last, which takes the rest; the user may change them.
QTableWidget* RowTable(QWidget* parent, const char* name, const QString& accessibleName,
                       std::initializer_list<int> characters);
// An empty page with its layout, ready to take the table and what stands below it.
QVBoxLayout* PageLayout(QWidget* page);
// Labels in the first column, fields in the second, which grows.
QGridLayout* FieldLayout();
QHBoxLayout* ButtonRow(QWidget* parent, std::initializer_list<const char*> names);

}  // namespace quillon::ui
