// frmNoDB, which asks what to do when the DataSet of the preferences cannot be opened.
#pragma once

#include "startup/start_up_forms.h"
#include "ui/form_dialog.h"

namespace quillon::ui {

class NoDbWindow : public FormDialog {
    Q_OBJECT
public:
    NoDbWindow(startup::FrmNoDB& form, QWidget* parent);
};

}  // namespace quillon::ui
