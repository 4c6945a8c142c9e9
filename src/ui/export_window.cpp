#include "ui/export_window.h"

#include <QtWidgets>

#include "ui/elided_label.h"
#include "ui/export_parts.h"
#include "ui/filter_frame.h"
#include "ui/named.h"

namespace quillon::ui {

namespace {

constexpr int kWidth = 84;  // in average characters

// The exported DataSet and the target, with the buttons that change them.
QLayout* MakePaths(QWidget* parent) {
    auto* grid = new QGridLayout;
    grid->setColumnStretch(0, 1);
    int row = 0;
    for (const auto& [label, button] :
         {std::pair("lblDataSet", "cmdSelectDB"), std::pair("lblFile", "cmdExportFile")}) {
        grid->addWidget(Named<ElidedLabel>(parent, label), row, 0);
        auto* ask = Named<QPushButton>(parent, button);
        ask->setAutoDefault(false);
        grid->addWidget(ask, row++, 1);
    }
    return grid;
}

}  // namespace

ExportWindow::ExportWindow(exporting::FrmNExport& form, QWidget* parent) : FormDialog(form.form, parent) {
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(MakePaths(this));
    auto* options = new QHBoxLayout;
    options->addWidget(MakeOptions(this, "FraExport", {"OptDataSet", "OptOnline", "OptPartial"}), 1);
    options->addWidget(MakeOptions(this, "fraPartial", {"optName", "optAuthority", "optRank"}), 1);
    layout->setSpacing(10);
    layout->addLayout(options);
    layout->addWidget(MakeFilterFrame(this));
    layout->addWidget(MakeGauge(this));
    layout->addStretch();
    layout->addLayout(MakeStartAndCancel(this));
    BindAll();
    findChild<QPushButton*>("cmdOK")->setFocus();
    resize(fontMetrics().averageCharWidth() * kWidth, sizeHint().height());
}

}  // namespace quillon::ui
