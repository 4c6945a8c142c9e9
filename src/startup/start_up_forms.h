// The small dialogs of the start: the splash, the question for a kingdom, and the dialog shown when no
// DataSet could be opened. Start-up shows them; their windows only display the controls.
#pragma once

#include <string>

#include "core/application_state.h"
#include "core/controls.h"
#include "core/outside.h"
#include "dataset/lifecycle.h"

namespace quillon::startup {

struct FrmSplash {
    Form form{"frmSplash"};
    LabelControl lblTitle{form, "lblTitle", "Taxonomic Quillon"};
    LabelControl lblVersion{form, "lblVersion"};

    // `version` is major.minor.revision; the splash omits the revision.
    explicit FrmSplash(const std::string& version);
};

class FrmKingdom {
public:
    FrmKingdom(ApplicationState& state, Prompter& prompter);

    Form form{"FrmKingdom"};
    LabelControl lblKingdom{form, "lblKingdom", "&Kingdom"};
    ComboControl cboKingdom{form, "cboKingdom", ComboControl::Style::ListOnly};
    ButtonControl cmdOK{form, "cmdOK", "&OK"};

private:
    void Accept();
    // The program needs a kingdom: closing the window ends it.
    void Leave();

    ApplicationState& state_;
    Prompter& prompter_;
};

class FrmNoDB {
public:
    FrmNoDB(ApplicationState& state, dataset::Lifecycle& lifecycle, Prompter& prompter);

    Form form{"frmNoDB"};
    LabelControl Instructions{form, "Instructions"};
    // Why the file could not be opened; hidden when none was tried.
    LabelControl lblReason{form, "lblReason"};
    ButtonControl cmdOpen{form, "cmdOpen", "&Open..."};
    ButtonControl cmdNew{form, "cmdNew", "&New..."};
    ButtonControl cmdExit{form, "cmdExit", "E&xit"};

private:
    void Open();
    void New();
    void Exit();
    // True when the DataSet is open and usable; otherwise a message has explained why not.
    bool OpenFile(const std::string& path);

    ApplicationState& state_;
    dataset::Lifecycle& lifecycle_;
    Prompter& prompter_;
};

}  // namespace quillon::startup
