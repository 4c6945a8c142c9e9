#include "ui/filter_frame.h"

#include <QtWidgets>

#include "ui/named.h"

namespace quillon::ui {

namespace {

QComboBox* MakeCombo(QWidget* parent, const char* name, const QString& accessibleName, int characters) {
    auto* combo = Named<QComboBox>(parent, name);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setAccessibleName(accessibleName);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(characters);
    return combo;
}

}  // namespace

// The tab order is the order of creation.
QGroupBox* MakeFilterFrame(QWidget* parent) {
    auto* frame = Named<QGroupBox>(parent, "fraFilter");
    auto* layout = new QVBoxLayout(frame);
    for (const char* option : {"optNoFilter", "optModified", "optColumn"})
        layout->addWidget(Named<QRadioButton>(frame, option));
    auto* condition = new QHBoxLayout;
    condition->addWidget(MakeCombo(frame, "cboFields", QObject::tr("Column"), 26), 3);
    condition->addWidget(MakeCombo(frame, "cboOperators", QObject::tr("Operator"), 4), 0);
    condition->addWidget(MakeCombo(frame, "cboValues", QObject::tr("Value"), 20), 2);
    const int indent = frame->style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth) +
                       frame->style()->pixelMetric(QStyle::PM_RadioButtonLabelSpacing);
    condition->setContentsMargins(indent, 0, 0, 0);
    layout->addLayout(condition);
    return frame;
}

}  // namespace quillon::ui
