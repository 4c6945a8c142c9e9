// FrmImport, "Import Data File", and the command that shows it. The form asks for a file, runs the import,
// and reports how it ended. Records that could not be stored are listed in it; the form then stays until the
// user closes it.
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
    // Loads the form: no import runs, none is canceled. The log goes into `workDirectory`, the current one
    // when empty.
    FrmImport(ApplicationState& state, store::Engine& engine, Prompter& prompter, EventPump& events,
              std::string workDirectory);

    Form form{"FrmImport"};
    LabelControl lblImport{form, "lblImport", "Import a File into the Quillon"};
    LabelControl fraFormat{form, "fraFormat", "Import Format"};
    // Files of this format cannot be read yet, so it cannot be chosen.
    OptionControl OptAscii{form, "OptAscii", "Format", "Standard ORVA Import Format"};
    OptionControl OptORVA{form, "OptORVA", "Format", "ORVA Online (Download from Online System) Format"};
    LabelControl lblDelimiter{form, "lblDelimiter", "Delimiter"};
    ComboControl cboDelimiter{form, "cboDelimiter"};
    LabelControl lblEnclosure{form, "lblEnclosure", "Enclosure"};
    ComboControl cboEnclosure{form, "cboEnclosure"};
    GaugeControl Gauge1{form, "Gauge1"};
    LabelControl lblStage{form, "lblStage"};       // what the closing pass does
    ListControl lstFailures{form, "lstFailures"};  // shown when there are any
    ButtonControl cmdOK{form, "cmdOK", "&OK"};
    ButtonControl cmdCancel{form, "cmdCancel", "Ca&ncel"};

    // The command of cmdOK; nothing while an import runs.
    void RunImport();
    // The command of cmdCancel: ends a running import, and closes the form when none runs.
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
    bool finished_ = false;  // an import ended, and the form shows its failures
};

enum class ImportOutcome {
    NotStarted,
    Canceled,
    Done,  // the explorer and the list show other taxa now
};

// The question before an import into a DataSet that holds more than its first rows; true when the import may
// run. Nothing is asked while gDataSetIsNew is set.
bool MayImport(const ApplicationState& state, Prompter& prompter);

// The command File, Import: its refusals and questions, and FrmImport. `stays` asks about an unsaved record
// and is true when the user stays on it.
ImportOutcome ImportCommand(ApplicationState& state, Prompter& prompter,
                            const std::function<bool()>& stays = {});

}  // namespace quillon::importing
