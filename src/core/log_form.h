// What the two forms over a log share: the log of an import and that of a validation are kept under another
// name, or go when the form closes. The forms show the log; nothing here reads what it says.
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
    // ".LOG", and then an existing file is asked about. It never replaces an open DataSet, a pipe or a
    // device.
    void SaveLogAs();
    // Removes the log and closes the form: the command of cmdOK, and what closing the window does.
    void Exit();

protected:
    // `logPath` is the log shown, `removedPath` the file that goes when the form closes.
    LogForm(std::string name, std::string_view title, const ApplicationState& state, Prompter& prompter,
            std::string logPath, std::string removedPath);
    ~LogForm() = default;

    const ApplicationState& state_;
    Prompter& prompter_;
    const std::string logPath_;

private:
    // Why the log cannot be kept at the path; empty when it can.
    std::string Refusal(const std::string& path) const;
    void MoveLogTo(const std::string& path);

    std::string removedPath_;
};

// The whole of a log; empty when it cannot be read.
std::string ReadLog(const std::string& path);

}  // namespace quillon
