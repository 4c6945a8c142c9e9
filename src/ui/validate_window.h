// frmValidate, "DataSetValidation".
#pragma once

#include "ui/form_dialog.h"
#include "validation/validate_form.h"

namespace quillon::ui {

class ValidateWindow : public FormDialog {
    Q_OBJECT
public:
    ValidateWindow(validation::frmValidate& form, QWidget* parent);
};

}  // namespace quillon::ui
