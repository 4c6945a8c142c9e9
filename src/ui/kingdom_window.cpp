#include "ui/kingdom_window.h"

#include <QtWidgets>

#include "ui/icons.h"

namespace quillon::ui {

namespace {

constexpr int kListWidth = 28;  // average characters

}  // namespace

KingdomWindow::KingdomWindow(startup::FrmKingdom& form, QWidget* parent) : FormDialog(form.form, parent) {
    setWindowIcon(Icon("quillon"));
    auto* label = new QLabel(this);
    label->setObjectName("lblKingdom");
    auto* kingdoms = new QComboBox(this);
    kingdoms->setObjectName("cboKingdom");
    kingdoms->setMinimumWidth(fontMetrics().averageCharWidth() * kListWidth);
    label->setBuddy(kingdoms);
    auto* ok = new QPushButton(this);
    ok->setObjectName("cmdOK");
    ok->setDefault(true);
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(label);
    row->addWidget(kingdoms, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 16);
    layout->setSpacing(20);
    layout->addLayout(row);
    layout->addWidget(ok, 0, Qt::AlignRight);
    BindAll();
    kingdoms->setFocus();
}

}  // namespace quillon::ui
