// FrmIError, "Import Error Log": shows "import.err", saves it under another name, and removes it when it
// closes.
#pragma once

#include <string>

#include "core/controls.h"
#include "core/outside.h"

namespace quillon::importing {

class FrmIError {
public:
    // Shows the log in `workDirectory`, the current one when empty.
    FrmIError(Prompter& prompter, const std::string& workDirectory);

    Form form{"FrmIError"};
    TextControl txtError{form, "txtError"};
    ButtonControl cmdSave{form, "cmdSave", "&Save Log As..."};
    ButtonControl cmdOK{form, "cmdOK", "E&xit"};

    // The command of cmdSave: moves the log to a path that the user chooses.
    void SaveLogAs();
    // Deletes the log and closes the form; the command of cmdOK, and what closing the window does.
    void Exit();

private:
    Prompter& prompter_;
    std::string logPath_;
};

}  // namespace quillon::importing
