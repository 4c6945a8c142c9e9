// The frame in which the forms of validation and export let the user choose the records: no filter, changed
// and new ones, or those that meet a condition of column, operator and value.
#pragma once

class QGroupBox;
class QWidget;

namespace quillon::ui {

// "fraFilter" with the options and combo boxes that both forms have, by their names.
QGroupBox* MakeFilterFrame(QWidget* parent);

}  // namespace quillon::ui
