#include "ui/validation_error_window.h"

#include <QtWidgets>

#include "ui/named.h"

namespace quillon::ui {

namespace {

// The filters of the log: a text and a rule.
QLayout* MakeFilterLine(QWidget* parent) {
    auto* label = Named<QLabel>(parent, "lblFilter");
    auto* filter = Named<QLineEdit>(parent, "txtFilter");
    filter->setClearButtonEnabled(true);
    label->setBuddy(filter);
    auto* rulesLabel = Named<QLabel>(parent, "lblRules");
    auto* rules = Named<QComboBox>(parent, "cboRules");
    rules->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    rules->setMinimumContentsLength(20);
    rulesLabel->setBuddy(rules);
    auto* line = new QHBoxLayout;
    line->addWidget(label);
    line->addWidget(filter, 1);
    line->addWidget(rulesLabel);
    line->addWidget(rules, 1);
    return line;
}

QListView* MakeList(QWidget* parent) {
    auto* list = Named<QListView>(parent, "lstError");
    list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    list->setAccessibleName(QObject::tr("Validation Error Log"));
    return list;
}

QLabel* MakeText(QWidget* parent, const char* name) {
    auto* label = Named<QLabel>(parent, name);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    return label;
}

// Right of the other window, else left of it, else at the right edge of the screen.
QPoint PlaceBeside(const QRect& other, const QSize& size, const QRect& screen) {
    int left = other.right() + 1;
    if (left + size.width() > screen.right() + 1) left = other.left() - size.width();
    if (left < screen.left()) left = screen.right() + 1 - size.width();
    const int top = qBound(screen.top(), other.top(), screen.bottom() + 1 - size.height());
    return {qMax(left, screen.left()), qMax(top, screen.top())};
}

}  // namespace

ValidationErrorWindow::ValidationErrorWindow(validation::FrmVError& form, QWidget* parent)
    : LogWindow(form, parent) {
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(MakeFilterLine(this));
    auto* list = MakeList(this);
    layout->addWidget(list, 1);
    layout->addWidget(MakeText(this, "lblRule"));
    layout->addWidget(MakeText(this, "lblCounts"));
    layout->addLayout(MakeButtons());
    Finish();
    list->setFocus();
}

void ValidationErrorWindow::ShowBeside(const QWidget& main) {
    setModal(false);
    move(PlaceBeside(main.frameGeometry(), size(), main.screen()->availableGeometry()));
    show();
}

}  // namespace quillon::ui
