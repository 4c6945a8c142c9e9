// frmInProgress, the shared progress dialog: a status line and a bar, without a Cancel button. Jobs use it
// through InProgress, which shows the window once the task has taken half a second and destroys it with the
// task. The window belongs to the main window and never takes the focus.
#pragma once

#include <QDialog>
#include <QPointer>
#include <QTimer>
#include <chrono>
#include <memory>

#include "core/controls.h"
#include "core/outside.h"

namespace quillon::ui {

struct FrmInProgress {
    Form form{"frmInProgress"};
    LabelControl lblIPStatus{form, "lblIPStatus"};
    GaugeControl theBar{form, "theBar"};
};

class InProgressWindow : public QDialog {
    Q_OBJECT
public:
    // `form` must outlive the window.
    InProgressWindow(FrmInProgress& form, QWidget* parent);
    // Only the end of the task closes it.
    void reject() override {}
};

class InProgress : public ProgressDialog {
public:
    // The window appears at the first turn of the event loop after `delay`.
    explicit InProgress(std::chrono::milliseconds delay = std::chrono::milliseconds(500));
    ~InProgress() override;
    InProgress(const InProgress&) = delete;
    InProgress& operator=(const InProgress&) = delete;

    // Sets the parent of the progress window. While the parent is hidden, no progress is shown.
    void SetWindow(QWidget* owner) { owner_ = owner; }
    // nullptr while no window is on the screen.
    InProgressWindow* Window() const { return window_; }

    void NewTask(std::string_view caption) override;
    void SetStatus(std::string_view status) override;
    void SetMin(int minimum) override { form_->theBar.SetMin(minimum); }
    void SetMax(int maximum) override { form_->theBar.SetMax(maximum); }
    void UpdateValue(int value) override;
    void Increment(int step) override { UpdateValue(form_->theBar.Value() + step); }
    void EndTask() override;

private:
    void Show();

    std::unique_ptr<FrmInProgress> form_;  // a new one for each task
    QPointer<QWidget> owner_;
    QPointer<InProgressWindow> window_;
    QTimer wait_;
};

}  // namespace quillon::ui
