// FrmVError, "Validation Error Log": shows and filters "validate.log", counts the findings by rule, and shows
// the taxon of a finding in RecView. It is not modal, so that the user can correct one finding after the
// other. It never validates.
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

    // Shows the log in `workDirectory`, or in the current directory when it is empty; `marks` are those of
    // the run that wrote it.
    // `events` must pass no user input on: the log is read and narrowed with turns.
    FrmVError(const ApplicationState& state, Prompter& prompter, EventPump& events,
              const std::string& workDirectory, FindingMarks marks, GoTo goTo);

    LabelControl lblFilter{form, "lblFilter", "&Find:"};
    TextControl txtFilter{form, "txtFilter"};
    LabelControl lblRules{form, "lblRules", "&Rule:"};
    // "All rules", then each rule with findings, by code and number of findings.
    ComboControl cboRules{form, "cboRules", ComboControl::Style::ListOnly};
    // The lines of the log, with their numbers from 0 as item data.
    ListControl lstError{form, "lstError"};
    // The sentence of the rule of the selected finding.
    LabelControl lblRule{form, "lblRule"};
    // The number of visible findings of each rule, the most frequent first.
    LabelControl lblCounts{form, "lblCounts"};

private:
    void FillRules();
    std::optional<Rule> ChosenRule() const;
    void ShowLines();
    void ShowRule();
    void GoToFinding();

    EventPump& events_;
    LogLines log_;
    GoTo goTo_;
    std::string dataSetPath_;  // the DataSet that was open when the log was shown
};

}  // namespace quillon::validation
