// FrmDExport, "Export DataSet to File", FrmTExport, "Export Taxonomy Data to File", and ExpType, "Taxonomic
// Compare Export Type", which leads to it. No command of the main window shows them.
#pragma once

#include "export/name_export_form.h"
#include "export/tagged_export_form.h"
#include "ui/form_dialog.h"

namespace quillon::ui {

// What is exported and where to, a gauge and two buttons: the looks of both export forms.
class PlainExportWindow : public FormDialog {
    Q_OBJECT
protected:
    PlainExportWindow(Form& form, QWidget* parent);
};

class TaggedExportWindow : public PlainExportWindow {
    Q_OBJECT
public:
    TaggedExportWindow(exporting::FrmDExport& form, QWidget* parent) : PlainExportWindow(form.form, parent) {}
};

class NameExportWindow : public PlainExportWindow {
    Q_OBJECT
public:
    NameExportWindow(exporting::FrmTExport& form, QWidget* parent) : PlainExportWindow(form.form, parent) {}
};

class ExportTypeWindow : public FormDialog {
    Q_OBJECT
public:
    ExportTypeWindow(exporting::ExpType& form, QWidget* parent);
};

}  // namespace quillon::ui
