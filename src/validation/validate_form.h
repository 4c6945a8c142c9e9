// frmValidate, "DataSetValidation": chooses the records and runs the validation of the open DataSet.
#pragma once

#include <functional>
#include <string>

#include "core/controls.h"
#include "validation/validate_data_set.h"

namespace quillon::validation {

class frmValidate {
public:
    // Loads the form and resets the state of a run. The logs go into `workDirectory`, or the current
    // directory when it is empty; `marks` is for the error viewer and must outlive the form.
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

    // Called before a run replaces the log, so that a window with the old one can close.
    std::function<void()> ReplacingLog;

    // The command of cmdContinue; does nothing while a validation runs. Reports an invalid condition and
    // keeps the form open.
    void Continue();
    // The command of cmdCancel: cancels a running validation, or closes the form.
    void Cancel();
    // The filter set by the options and the combo boxes.
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
