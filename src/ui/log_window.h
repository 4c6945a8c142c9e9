// The base of the windows for the log of an import and of a validation: the buttons, and a size for lines of
// text.
#pragma once

#include "core/log_form.h"
#include "ui/form_dialog.h"

class QLayout;

namespace quillon::ui {

class LogWindow : public FormDialog {
    Q_OBJECT
protected:
    LogWindow(LogForm& form, QWidget* parent) : FormDialog(form.form, parent) {}

    // The row of buttons. None of them is a default button.
    QLayout* MakeButtons();
    // Binds the controls and gives the window its size.
    void Finish();
};

}  // namespace quillon::ui
