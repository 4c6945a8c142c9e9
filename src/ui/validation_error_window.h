// FrmVError, "Validation Error Log".
#pragma once

#include "ui/form_dialog.h"
#include "validation/validation_error_form.h"

namespace quillon::ui {

class ValidationErrorWindow : public FormDialog {
    Q_OBJECT
public:
    ValidationErrorWindow(validation::FrmVError& form, QWidget* parent);
};

}  // namespace quillon::ui
