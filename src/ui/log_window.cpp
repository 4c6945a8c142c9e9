#include "ui/log_window.h"

#include <QtWidgets>

#include "ui/named.h"

namespace quillon::ui {

namespace {

constexpr int kWidth = 100, kHeight = 60;  // in average characters

}  // namespace

QLayout* LogWindow::MakeButtons() {
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (const char* name : {"cmdSave", "cmdOK"}) {
        auto* button = Named<QPushButton>(this, name);
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    return buttons;
}

void LogWindow::Finish() {
    BindAll();
    const int character = fontMetrics().averageCharWidth();
    resize(character * kWidth, character * kHeight);
}

}  // namespace quillon::ui
