// frmInProgress, the one shared progress dialog: a status line and a bar. It has no Cancel button.
#pragma once

#include <QDialog>

#include "core/controls.h"
#include "core/outside.h"

namespace quillon::ui {

struct FrmInProgress {
    Form form{"frmInProgress"};
    LabelControl lblIPStatus{form, "lblIPStatus"};
    GaugeControl theBar{form, "theBar"};
};

class InProgressWindow : public QDialog, public ProgressDialog {
    Q_OBJECT
public:
    InProgressWindow();
    const FrmInProgress& Controls() const { return controls_; }

    void NewTask(std::string_view caption) override;
    void SetStatus(std::string_view status) override;
    void SetMin(int minimum) override { controls_.theBar.SetMin(minimum); }
    void SetMax(int maximum) override { controls_.theBar.SetMax(maximum); }
    void UpdateValue(int value) override;
    void Increment(int step) override { UpdateValue(controls_.theBar.Value() + step); }
    void EndTask() override { hide(); }
    // It closes with its task only.
    void reject() override {}

private:
    FrmInProgress controls_;
};

}  // namespace quillon::ui
