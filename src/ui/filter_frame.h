// The filter frame of the validation and export forms: all records, changed and new ones, or those that meet
// a condition of column, operator and value.
#pragma once

class QGroupBox;
class QWidget;

namespace quillon::ui {

// Makes "fraFilter" with the named options and combo boxes of both forms.
QGroupBox* MakeFilterFrame(QWidget* parent);

}  // namespace quillon::ui
