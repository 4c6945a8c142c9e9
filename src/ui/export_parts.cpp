#include "ui/export_parts.h"

#include <QtWidgets>

#include "ui/named.h"

namespace quillon::ui {

QGroupBox* MakeOptions(QWidget* parent, const char* frame, std::initializer_list<const char*> options) {
    auto* box = Named<QGroupBox>(parent, frame);
    auto* layout = new QVBoxLayout(box);
    for (const char* option : options) layout->addWidget(Named<QRadioButton>(box, option));
    return box;
}

QProgressBar* MakeGauge(QWidget* parent) {
    auto* gauge = Named<QProgressBar>(parent, "Gauge1");
    gauge->setAccessibleName(QObject::tr("Progress"));
    return gauge;
}

QLayout* MakeStartAndCancel(QWidget* parent) {
    auto* start = Named<QPushButton>(parent, "cmdOK");
    start->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(start);
    buttons->addWidget(Named<QPushButton>(parent, "cmdCancel"));
    return buttons;
}

}  // namespace quillon::ui
