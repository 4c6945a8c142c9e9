#include "ui/validate_window.h"

#include <QtWidgets>

#include "ui/filter_frame.h"
#include "ui/named.h"

namespace quillon::ui {

ValidateWindow::ValidateWindow(validation::frmValidate& form, QWidget* parent)
    : FormDialog(form.form, parent) {
    auto* caption = Named<QLabel>(this, "lblValidate");
    auto* path = Named<QLineEdit>(this, "txtValidate");
    caption->setBuddy(path);
    auto* filter = MakeFilterFrame(this);
    auto* gauge = Named<QProgressBar>(this, "Gauge1");
    gauge->setAccessibleName(tr("Progress"));
    auto* start = Named<QPushButton>(this, "cmdContinue");
    start->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(start);
    buttons->addWidget(Named<QPushButton>(this, "cmdCancel"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(caption);
    layout->addWidget(path);
    layout->addSpacing(6);
    layout->addWidget(filter);
    layout->addSpacing(6);
    layout->addWidget(gauge);
    layout->addStretch();
    layout->addLayout(buttons);
    BindAll();
    start->setFocus();
}

}  // namespace quillon::ui
