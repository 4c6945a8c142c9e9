// The window of ExpType, "Taxonomic Compare Export Type", which opens FrmTExport. No command of the main
// window shows it yet.
#pragma once

#include "export/name_export_form.h"
#include "ui/form_dialog.h"

namespace quillon::ui {

class ExportTypeWindow : public FormDialog {
    Q_OBJECT
public:
    ExportTypeWindow(exporting::ExpType& form, QWidget* parent);
};

}  // namespace quillon::ui
