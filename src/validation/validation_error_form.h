// FrmVError, "Validation Error Log": shows "validate.log", narrows it to what the user looks for, counts the
// findings by rule, and brings the taxon of a finding up. It never validates.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/application_state.h"
#include "core/controls.h"
#include "core/outside.h"
#include "validation/findings.h"

namespace quillon::validation {

class FrmVError {
public:
    // Brings a taxon up in RecView on the tab of that key.
    using GoTo = std::function<void(int qb_id, std::string_view tab)>;

    // Shows the log in `workDirectory`, the current one when empty. `marks` are those of the run that wrote
    // it, and must outlive the form.
    FrmVError(ApplicationState& state, Prompter& prompter, const std::string& workDirectory,
              const FindingMarks& marks, GoTo goTo);

    Form form{"FrmVError"};
    LabelControl lblFilter{form, "lblFilter", "&Find:"};
    TextControl txtFilter{form, "txtFilter"};
    // A line of the log each, with its number from 0 as item data.
    ListControl lstError{form, "lstError"};
    // How many of the findings shown there are of each rule, the most frequent first.
    LabelControl lblCounts{form, "lblCounts"};
    ButtonControl cmdSave{form, "cmdSave", "&Save Log As..."};
    ButtonControl cmdOK{form, "cmdOK", "E&xit"};

    // The command of cmdSave: moves the log to a path that the user chooses.
    void SaveLogAs();
    // Deletes a log in the current directory and closes the form.
    void Exit();

private:
    void ReadLog();
    void ShowLines();
    void ShowCounts();
    void GoToFinding();

    ApplicationState& state_;
    Prompter& prompter_;
    std::string logPath_;
    const FindingMarks& marks_;
    GoTo goTo_;
    std::vector<std::string> lines_;
};

}  // namespace quillon::validation
