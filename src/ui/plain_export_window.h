// The window of FrmDExport, "Export DataSet to File", and of FrmTExport, "Export Taxonomy Data to File". No
// command of the main window shows it yet.
#pragma once

#include "export/plain_export_form.h"
#include "ui/form_dialog.h"

namespace quillon::ui {

class PlainExportWindow : public FormDialog {
    Q_OBJECT
public:
    PlainExportWindow(exporting::PlainExportForm& form, QWidget* parent);
};

}  // namespace quillon::ui
