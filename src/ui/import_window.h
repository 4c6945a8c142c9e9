// FrmImport, "Import Data File", and FrmIError, "Import Error Log".
#pragma once

#include "import/import_error_form.h"
#include "import/import_form.h"
#include "ui/form_dialog.h"
#include "ui/log_window.h"

namespace quillon::ui {

class ImportWindow : public FormDialog {
    Q_OBJECT
public:
    ImportWindow(importing::FrmImport& form, QWidget* parent);
};

class ImportErrorWindow : public LogWindow {
    Q_OBJECT
public:
    ImportErrorWindow(importing::FrmIError& form, QWidget* parent);
};

}  // namespace quillon::ui
