// FrmVError, "Validation Error Log".
#pragma once

#include "ui/log_window.h"
#include "validation/validation_error_form.h"

namespace quillon::ui {

class ValidationErrorWindow : public LogWindow {
    Q_OBJECT
public:
    ValidationErrorWindow(validation::FrmVError& form, QWidget* parent);
    // Shows the window beside the one that it belongs to, as far as the screen has room, and does not block
    // it.
    void ShowBeside(const QWidget& main);
};

}  // namespace quillon::ui
