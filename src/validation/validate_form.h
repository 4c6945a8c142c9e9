// frmValidate, "DataSetValidation": chooses which records to validate, and runs the validation of the open
// DataSet. The window over it shows the controls and passes on what the user does.
#pragma once

#include <functional>
#include <string>

#include "core/controls.h"
#include "validation/validate_data_set.h"

namespace quillon::validation {

class frmValidate {
public:
    // Loads the form: no validation runs, none is canceled. The logs go into `workDirectory`, the current one
    // when empty; `marks` is for the error viewer, and must outlive the form.
    frmValidate(ApplicationState& state, store::Engine& engine, Prompter& prompter, EventPump& events,
                const Clock& clock, std::string workDirectory, FindingMarks& marks);

    Form form{"frmValidate"};
    LabelControl lblValidate{form, "lblValidate", "Perform Validation for DataSet"};
    TextControl txtValidate{form, "txtValidate"};
    LabelControl fraFilter{form, "fraFilter", "Filter Validated  Records"};
    OptionControl optNoFilter{form, "optNoFilter", "Filter", "No Filter"};
    OptionControl optModified{form, "optModified", "Filter", "Validate only Changed and New Records"};
    OptionControl optColumn{form, "optColumn", "Filter", "Filter Validation by:"};
    ComboControl cboFields{form, "cboFields"};
    ComboControl cboOperators{form, "cboOperators"};
    ComboControl cboValues{form, "cboValues"};
    GaugeControl Gauge1{form, "Gauge1"};
    ButtonControl cmdContinue{form, "cmdContinue", "&Continue"};
    ButtonControl cmdCancel{form, "cmdCancel", "Ca&ncel"};

    // Called when a run is about to replace the log; whoever shows the old one closes it.
    std::function<void()> ReplacingLog;

    // The command of cmdContinue; nothing while a validation runs. It reports a condition that may not run,
    // and the form stays.
    void Continue();
    // The command of cmdCancel: cancels a running validation, and closes the form when none runs.
    void Cancel();
    // The filter that the options and the combo boxes mean.
    std::string Filter() const;

private:
    void EnableCondition();
    void EmptyRejected();
    void Validate();

    ApplicationState& state_;
    store::Engine& engine_;
    ValidationOutside outside_;
};

}  // namespace quillon::validation
