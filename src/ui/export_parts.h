// Widgets of the export windows, each named after its control for the binder.
#pragma once

#include <initializer_list>

class QGroupBox;
class QLayout;
class QProgressBar;
class QPushButton;
class QWidget;

namespace quillon::ui {

// A group box with its options in a column.
QGroupBox* MakeOptions(QWidget* parent, const char* frame, std::initializer_list<const char*> options);
// Gauge1.
QProgressBar* MakeGauge(QWidget* parent);
// cmdOK, the default button, and cmdCancel, aligned right.
QLayout* MakeStartAndCancel(QWidget* parent);

}  // namespace quillon::ui
