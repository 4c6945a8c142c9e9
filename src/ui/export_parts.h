// Widgets that the export windows share. Each is named after its control, so that the binder finds it.
#pragma once

#include <initializer_list>

class QGroupBox;
class QLayout;
class QProgressBar;
class QPushButton;
class QWidget;

namespace quillon::ui {

// A frame with its options, one below the other.
QGroupBox* MakeOptions(QWidget* parent, const char* frame, std::initializer_list<const char*> options);
// Gauge1.
QProgressBar* MakeGauge(QWidget* parent);
// cmdOK, which Return presses, and cmdCancel, at the right.
QLayout* MakeStartAndCancel(QWidget* parent);

}  // namespace quillon::ui
