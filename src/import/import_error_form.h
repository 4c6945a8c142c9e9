// FrmIError, "Import Error Log": shows "import.err", saves it under another name, and removes it when the
// form closes.
#pragma once

#include <string>

#include "core/log_form.h"

namespace quillon::importing {

class FrmIError : public LogForm {
public:
    // Shows the log in `workDirectory`, or in the current directory when it is empty.
    FrmIError(const ApplicationState& state, Prompter& prompter, const std::string& workDirectory);

    TextControl txtError{form, "txtError"};
};

}  // namespace quillon::importing
