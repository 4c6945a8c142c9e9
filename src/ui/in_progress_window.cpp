#include "ui/in_progress_window.h"

#include <QtWidgets>

#include "ui/binder.h"

namespace quillon::ui {

InProgressWindow::InProgressWindow() {
    setObjectName("frmInProgress");
    auto* status = new QLabel(this);
    status->setObjectName("lblIPStatus");
    auto* bar = new QProgressBar(this);
    bar->setObjectName("theBar");
    bar->setMinimumWidth(fontMetrics().averageCharWidth() * 60);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(status);
    layout->addWidget(bar);
    Bind(controls_.form, *this);
}

void InProgressWindow::NewTask(std::string_view caption) {
    controls_.theBar.SetValue(controls_.theBar.Min());
    controls_.form.SetTitle(caption);
    show();
    repaint();
}

void InProgressWindow::SetStatus(std::string_view status) {
    controls_.lblIPStatus.SetCaption(status);
    repaint();
}

void InProgressWindow::UpdateValue(int value) {
    controls_.theBar.SetValue(value);
    repaint();
}

}  // namespace quillon::ui
