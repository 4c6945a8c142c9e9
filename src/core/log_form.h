// The base of the forms for the log of an import and of a validation. A log is saved under another name, or
// removed when the form closes.
#pragma once

#include <string>
#include <string_view>

#include "core/application_state.h"
#include "core/controls.h"
#include "core/outside.h"

namespace quillon {

class LogForm {
public:
    Form form;
    ButtonControl cmdSave{form, "cmdSave", "&Save Log As..."};
    ButtonControl cmdOK{form, "cmdOK", "E&xit"};

    // The command of cmdSave: moves the log to a path that the user chooses. A name without a full stop gets
    // ".LOG"; if that file exists, it asks. It never replaces an open DataSet, a pipe or a device.
    void SaveLogAs();
    // Removes the log and closes the form: the command of cmdOK and of closing the window.
    void Exit();

protected:
    // `logPath` is the log to show, `removedPath` the file to remove when the form closes.
    LogForm(std::string name, std::string_view title, const ApplicationState& state, Prompter& prompter,
            std::string logPath, std::string removedPath);
    ~LogForm() = default;

    const ApplicationState& state_;
    Prompter& prompter_;
    const std::string logPath_;

private:
    // Why the log cannot be saved at the path; empty when it can.
    std::string Refusal(const std::string& path) const;
    void MoveLogTo(const std::string& path);

    std::string removedPath_;
};

// The whole of a log; empty when it cannot be read.
std::string ReadLog(const std::string& path);

}  // namespace quillon
