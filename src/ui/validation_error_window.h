// FrmVError, "Validation Error Log".
#pragma once

#include "ui/log_window.h"
#include "validation/validation_error_form.h"

namespace quillon::ui {

class ValidationErrorWindow : public LogWindow {
    Q_OBJECT
public:
    ValidationErrorWindow(validation::FrmVError& form, QWidget* parent);
    // Shows the window, not modal, beside the main window as far as the screen has room.
    void ShowBeside(const QWidget& main);
};

}  // namespace quillon::ui
