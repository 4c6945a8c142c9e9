// FrmDExport, "Export DataSet to File": writes the open DataSet as a tagged file under the filter as it
// stands, with a log of its times. It has no command in the main window.
#pragma once

#include <string>

#include "core/controls.h"
#include "export/export_job.h"

namespace quillon::exporting {

class FrmDExport {
public:
    // "time.log" goes into `workDirectory`, the current one when empty.
    FrmDExport(ApplicationState& state, store::Engine& engine, Prompter& prompter, EventPump& events,
               const Clock& clock, std::string workDirectory);

    Form form{"FrmDExport"};
    LabelControl lblDataSet{form, "lblDataSet"};
    LabelControl lblFile{form, "lblFile"};
    GaugeControl Gauge1{form, "Gauge1"};
    ButtonControl cmdOK{form, "cmdOK", "&Continue"};
    ButtonControl cmdCancel{form, "cmdCancel", "Ca&ncel"};

    // Asks for the file when the form comes up; without a name the form closes, and false is given.
    bool AskFile();
    // The command of cmdOK; nothing while an export runs.
    void Continue();
    // The command of cmdCancel: cancels a running export, and closes the form when none runs.
    void Cancel();

private:
    void RunWithTimes();

    ApplicationState& state_;
    store::Engine& engine_;
    validation::ValidationOutside outside_;
};

}  // namespace quillon::exporting
