#include "ui/validation_error_window.h"

#include <QtWidgets>

#include "ui/named.h"

namespace quillon::ui {

namespace {

constexpr int kWidth = 100, kHeight = 60;  // in average characters

QLayout* MakeFilterLine(QWidget* parent) {
    auto* label = Named<QLabel>(parent, "lblFilter");
    auto* filter = Named<QLineEdit>(parent, "txtFilter");
    filter->setClearButtonEnabled(true);
    label->setBuddy(filter);
    auto* line = new QHBoxLayout;
    line->addWidget(label);
    line->addWidget(filter);
    return line;
}

QListView* MakeList(QWidget* parent) {
    auto* list = Named<QListView>(parent, "lstError");
    list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    list->setAccessibleName(QObject::tr("Validation Error Log"));
    return list;
}

}  // namespace

ValidationErrorWindow::ValidationErrorWindow(validation::FrmVError& form, QWidget* parent)
    : FormDialog(form.form, parent) {
    auto* list = MakeList(this);
    auto* counts = Named<QLabel>(this, "lblCounts");
    counts->setWordWrap(true);
    counts->setTextFormat(Qt::PlainText);
    auto* save = Named<QPushButton>(this, "cmdSave");
    auto* exit = Named<QPushButton>(this, "cmdOK");
    save->setAutoDefault(false);
    exit->setAutoDefault(false);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(save);
    buttons->addWidget(exit);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(MakeFilterLine(this));
    layout->addWidget(list, 1);
    layout->addWidget(counts);
    layout->addLayout(buttons);
    BindAll();
    list->setFocus();
    const int character = fontMetrics().averageCharWidth();
    resize(character * kWidth, character * kHeight);
}

}  // namespace quillon::ui
