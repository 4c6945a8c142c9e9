// FrmVError, "Validation Error Log": shows "validate.log", narrows it to what the user looks for, counts the
// findings by rule, and shows the taxon of a finding in RecView. It stands beside the main window, so that
// one finding after the other can be worked through. It never validates.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/log_form.h"
#include "validation/log_lines.h"

namespace quillon::validation {

class FrmVError : public LogForm {
public:
    // Shows a taxon in RecView on the tab of that key.
    using GoTo = std::function<void(int qb_id, std::string_view tab)>;

    // Shows the log in `workDirectory`, the current one when empty; `marks` are those of the run that wrote
    // it.
    FrmVError(const ApplicationState& state, Prompter& prompter, const std::string& workDirectory,
              FindingMarks marks, GoTo goTo);

    LabelControl lblFilter{form, "lblFilter", "&Find:"};
    TextControl txtFilter{form, "txtFilter"};
    LabelControl lblRules{form, "lblRules", "&Rule:"};
    // "All rules", then each rule of which there are findings, with its code and their number.
    ComboControl cboRules{form, "cboRules", ComboControl::Style::ListOnly};
    // A line of the log each, with its number from 0 as item data.
    ListControl lstError{form, "lstError"};
    // What the rule of the selected finding asks for.
    LabelControl lblRule{form, "lblRule"};
    // How many of the findings shown there are of each rule, the most frequent first.
    LabelControl lblCounts{form, "lblCounts"};

private:
    void FillRules();
    std::optional<Rule> ChosenRule() const;
    void ShowLines();
    void ShowRule();
    void GoToFinding();

    LogLines log_;
    GoTo goTo_;
    std::string dataSetPath_;  // of the DataSet that was open when the log was shown
};

}  // namespace quillon::validation
