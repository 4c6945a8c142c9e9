// What the pages for publications, experts and other sources have beyond page_parts.h: fields with their
// labels beside them, ids to be read, and pickers. Nothing here holds a rule.
#pragma once

#include "ui/pages/page_parts.h"

namespace quillon::ui::documentation_page {

// A line for an id, to be read and copied.
QLineEdit* IdLine(QWidget* parent, const char* name);
// A field that takes what room there is, with a list to pick from.
QComboBox* PickList(QWidget* parent, const char* name);
// A few lines of text, out of which Tab leads on.
QPlainTextEdit* CommentBox(QWidget* parent, const char* name);
// The picker of a vernacular: what it shows need not be in its list, but nothing is typed into it.
QComboBox* VernacularPicker(QWidget* parent, const char* name);

// Puts `field` behind its label, `column` being the label's, over `span` columns.
void AddField(QGridLayout& layout, int row, int column, const QString& label, QWidget* field, int span = 1);
// The ids on the left, the buttons of those names on the right.
QHBoxLayout* Foot(QWidget* parent, std::initializer_list<std::pair<QString, QLineEdit*>> ids,
                  std::initializer_list<const char*> buttons);
// The focus goes from one widget of the page to the next in the order of these names.
void SetTabOrder(const QWidget& page, std::initializer_list<const char*> names);

}  // namespace quillon::ui::documentation_page
