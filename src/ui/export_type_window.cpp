#include "ui/export_type_window.h"

#include <QtWidgets>

#include "ui/export_parts.h"

namespace quillon::ui {

ExportTypeWindow::ExportTypeWindow(exporting::ExpType& form, QWidget* parent)
    : FormDialog(form.form, parent) {
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(MakeOptions(this, "fraType", {"optName", "optAuthority", "optRank"}));
    layout->addStretch();
    layout->addLayout(MakeStartAndCancel(this));
    BindAll();
}

}  // namespace quillon::ui
