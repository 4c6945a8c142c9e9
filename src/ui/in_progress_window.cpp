#include "ui/in_progress_window.h"

#include <QtWidgets>

#include "ui/binder.h"
#include "ui/guard.h"
#include "ui/named.h"

namespace quillon::ui {

namespace {

constexpr int kBarWidth = 60;  // average characters

}  // namespace

InProgressWindow::InProgressWindow(FrmInProgress& form, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowDoesNotAcceptFocus) {
    setObjectName("frmInProgress");
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* status = Named<QLabel>(this, "lblIPStatus");
    auto* bar = Named<QProgressBar>(this, "theBar");
    bar->setMinimumWidth(fontMetrics().averageCharWidth() * kBarWidth);
    bar->setAccessibleName(tr("Progress"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(status);
    layout->addWidget(bar);
    Bind(form.form, *this);
}

InProgress::InProgress(std::chrono::milliseconds delay) : form_(std::make_unique<FrmInProgress>()) {
    wait_.setSingleShot(true);
    wait_.setInterval(delay);
    Connect(&wait_, &QTimer::timeout, &wait_, [this] { Show(); });
}

InProgress::~InProgress() {
    delete window_;
}

void InProgress::NewTask(std::string_view caption) {
    EndTask();
    auto task = std::make_unique<FrmInProgress>();
    task->theBar.SetMin(form_->theBar.Min());
    task->theBar.SetMax(form_->theBar.Max());
    task->theBar.SetValue(task->theBar.Min());
    task->form.SetTitle(caption);
    form_ = std::move(task);
    wait_.start();
}

void InProgress::Show() {
    if (owner_ == nullptr || !owner_->isVisible()) return;
    window_ = new InProgressWindow(*form_, owner_);
    window_->show();
}

void InProgress::SetStatus(std::string_view status) {
    form_->lblIPStatus.SetCaption(status);
    if (window_ != nullptr) window_->repaint();
}

void InProgress::UpdateValue(int value) {
    form_->theBar.SetValue(value);
    if (window_ != nullptr) window_->repaint();
}

// Destroys the window: a window manager that has not mapped it yet may leave a hidden window on the screen.
void InProgress::EndTask() {
    wait_.stop();
    delete window_;
}

}  // namespace quillon::ui
