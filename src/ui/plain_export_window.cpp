#include "ui/plain_export_window.h"

#include <QtWidgets>

#include "ui/elided_label.h"
#include "ui/export_parts.h"
#include "ui/named.h"

namespace quillon::ui {

namespace {

constexpr int kWidth = 70;  // in average characters

}  // namespace

PlainExportWindow::PlainExportWindow(exporting::PlainExportForm& form, QWidget* parent)
    : FormDialog(form.form, parent) {
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(10);
    layout->addWidget(Named<ElidedLabel>(this, "lblDataSet"));
    layout->addWidget(Named<ElidedLabel>(this, "lblFile"));
    layout->addWidget(MakeGauge(this));
    layout->addStretch();
    layout->addLayout(MakeStartAndCancel(this));
    BindAll();
    resize(fontMetrics().averageCharWidth() * kWidth, sizeHint().height());
}

}  // namespace quillon::ui
