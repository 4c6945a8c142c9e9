#include "ui/plain_export_windows.h"

#include <QtWidgets>

#include "ui/elided_label.h"
#include "ui/named.h"

namespace quillon::ui {

namespace {

constexpr int kWidth = 70;  // in average characters

QLayout* MakeButtons(QWidget* parent) {
    auto* start = Named<QPushButton>(parent, "cmdOK");
    start->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(start);
    buttons->addWidget(Named<QPushButton>(parent, "cmdCancel"));
    return buttons;
}

}  // namespace

PlainExportWindow::PlainExportWindow(Form& form, QWidget* parent) : FormDialog(form, parent) {
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(10);
    layout->addWidget(Named<ElidedLabel>(this, "lblDataSet"));
    layout->addWidget(Named<ElidedLabel>(this, "lblFile"));
    auto* gauge = Named<QProgressBar>(this, "Gauge1");
    gauge->setAccessibleName(tr("Progress"));
    layout->addWidget(gauge);
    layout->addStretch();
    layout->addLayout(MakeButtons(this));
    BindAll();
    resize(fontMetrics().averageCharWidth() * kWidth, sizeHint().height());
}

ExportTypeWindow::ExportTypeWindow(exporting::ExpType& form, QWidget* parent)
    : FormDialog(form.form, parent) {
    auto* frame = Named<QGroupBox>(this, "fraType");
    auto* options = new QVBoxLayout(frame);
    for (const char* option : {"optName", "optAuthority", "optRank"})
        options->addWidget(Named<QRadioButton>(frame, option));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame);
    layout->addStretch();
    layout->addLayout(MakeButtons(this));
    BindAll();
}

}  // namespace quillon::ui
