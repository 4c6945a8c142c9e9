// FrmImport, "Import Data File", and the command that shows it. The form asks for a file, runs the import,
// and reports how it ended. It lists records that could not be stored, and then stays open until the user
// closes it.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/application_state.h"
#include "core/controls.h"
#include "core/outside.h"
#include "import/tagged_import.h"
#include "store/engine.h"

namespace quillon::importing {

class FrmImport {
public:
    // Loads the form and resets the state of a run. The log goes into `workDirectory`, or the current
    // directory when it is empty.
    FrmImport(ApplicationState& state, store::Engine& engine, Prompter& prompter, EventPump& events,
              std::string workDirectory);

    Form form{"FrmImport"};
    LabelControl lblImport{form, "lblImport", "Import a File into the Quillon"};
    LabelControl fraFormat{form, "fraFormat", "Import Format"};
    // Disabled, because files of this format cannot be read yet.
    OptionControl OptAscii{form, "OptAscii", "Format", "Standard ORVA Import Format"};
    OptionControl OptORVA{form, "OptORVA", "Format", "ORVA Online (Download from Online System) Format"};
    LabelControl lblDelimiter{form, "lblDelimiter", "Delimiter"};
    ComboControl cboDelimiter{form, "cboDelimiter"};
    LabelControl lblEnclosure{form, "lblEnclosure", "Enclosure"};
    ComboControl cboEnclosure{form, "cboEnclosure"};
    GaugeControl Gauge1{form, "Gauge1"};
    LabelControl lblStage{form, "lblStage"};       // the stage of the closing pass
    ListControl lstFailures{form, "lstFailures"};  // visible only when there are failures
    ButtonControl cmdOK{form, "cmdOK", "&OK"};
    ButtonControl cmdCancel{form, "cmdCancel", "Ca&ncel"};

    // The command of cmdOK; does nothing while an import runs.
    void RunImport();
    // The command of cmdCancel: cancels a running import, or closes the form.
    void Cancel();

private:
    void EnableSymbols();
    void ImportFile(const std::string& path);
    void ShowFailures(const std::vector<std::string>& failures);
    void ReportEnd(const ImportResult& result);
    void ReportErrors(const ImportResult& result);

    ApplicationState& state_;
    store::Engine& engine_;
    Prompter& prompter_;
    EventPump& events_;
    std::string workDirectory_;
    bool finished_ = false;  // an import has ended and the form shows its failures
};

enum class ImportOutcome {
    NotStarted,
    Canceled,
    Done,  // the explorer and the list must be rebuilt
};

// Asks before an import into a DataSet with more than its first rows; true when the import may run. Does not
// ask while gDataSetIsNew is set.
bool MayImport(const ApplicationState& state, Prompter& prompter);

// The command File, Import: its refusals and questions, and FrmImport. `stays` asks about an unsaved record
// and is true when the user stays on it.
ImportOutcome ImportCommand(ApplicationState& state, Prompter& prompter,
                            const std::function<bool()>& stays = {});

}  // namespace quillon::importing
