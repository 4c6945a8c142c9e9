// clang-format off
// Connects the control models of a form with the widgets and actions of a window that have the same
// objectName. The window shows the model's state, and the model receives the user's actions. There is no
// logic here.
//
//     ButtonControl    QAction, QAbstractButton
//     OptionControl    QAction, QAbstractButton
//     CheckControl     QAction, QAbstractButton
//     LabelControl     QLabel; any other widget for enabled and visible
//     TextControl      QLineEdit, QPlainTextEdit
//     ComboControl     QComboBox
//     ListControl      QListWidget, QListView
//     MultiListControl QListView
//     GridControl      QTableWidget
//     GaugeControl     QProgressBar
//     TabStripControl  QTabBar
// clang-format on
#pragma once

#include <QObject>
#include <QStringList>

#include "core/controls.h"

namespace quillon::ui {

// Binds every control of the form. `window` owns the connections; the form must live as long as the window is
// shown.
void Bind(Form& form, QWidget& window);

// The names of controls without a matching widget in the window, and of named actions and input widgets
// without a control. Empty when the form and the window match.
QStringList NamesWithoutPartner(const Form& form, const QWidget& window);

}  // namespace quillon::ui
