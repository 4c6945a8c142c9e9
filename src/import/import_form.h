// FrmImport, "Import Data File", and the command that shows it. The form asks for a file, runs the import,
// and tells how it ended. The window over it is thin: it shows the controls and passes on what the user does.
#pragma once

#include <string>
#include <string_view>

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
    ButtonControl cmdOK{form, "cmdOK", "&OK"};
    ButtonControl cmdCancel{form, "cmdCancel", "Ca&ncel"};

    // The command of cmdOK; nothing while an import runs.
    void RunImport();
    // The command of cmdCancel: ends a running import after the line at hand, and closes the form when none
    // runs.
    void Cancel();

private:
    void EnableSymbols();
    void ImportFile(const std::string& path);
    void TellCompleted(const ImportResult& result);
    void TellNotCompleted(const ImportResult& result);

    ApplicationState& state_;
    store::Engine& engine_;
    Prompter& prompter_;
    EventPump& events_;
    std::string workDirectory_;
};

enum class ImportOutcome {
    NotStarted,
    Canceled,
    Done,  // the explorer and the list show other taxa now
};

// The command File, Import: its refusals, and FrmImport.
ImportOutcome ImportCommand(ApplicationState& state, Prompter& prompter);

}  // namespace quillon::importing
