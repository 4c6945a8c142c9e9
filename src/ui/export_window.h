// FrmNExport, "Export DataSet".
#pragma once

#include "export/export_form.h"
#include "ui/form_dialog.h"

namespace quillon::ui {

class ExportWindow : public FormDialog {
    Q_OBJECT
public:
    ExportWindow(exporting::FrmNExport& form, QWidget* parent);
};

}  // namespace quillon::ui
