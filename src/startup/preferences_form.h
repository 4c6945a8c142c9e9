// FrmPreferences, the dialog of File, Preferences, and the command that shows it. It shows the preferences of
// the state. Save stores them in the state and in the file; nothing changes before.
//
// The caller of the command resets the main form after the dialog has closed.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>

#include "core/application_state.h"
#include "core/controls.h"
#include "core/ini_profile.h"
#include "core/outside.h"

namespace quillon::startup {

class FrmPreferences {
public:
    // Loads the form and sets gPreferencesChanging. A DataSet must be open; `file` is the preferences file.
    FrmPreferences(ApplicationState& state, IniProfile& profile, Prompter& prompter, std::string file);

    Form form{"FrmPreferences"};
    ButtonControl mnuFQuit{form, "mnuFQuit", "&Quit"};
    ButtonControl mnuHContents{form, "mnuHContents", "&Contents"};
    ButtonControl mnuHSearch{form, "mnuHSearch", "&Search For Help On..."};
    ButtonControl mnuHAbout{form, "mnuHAbout", "&About Taxonomic Quillon"};

    LabelControl fraKingdom{form, "fraKingdom", "Default Kingdom"};
    OptionControl OptMonera{form, "OptMonera", "Kingdom", "&Monera"};
    OptionControl optProtozoa{form, "optProtozoa", "Kingdom", "P&rotozoa"};
    OptionControl OptPlantae{form, "OptPlantae", "Kingdom", "&Plantae"};
    OptionControl optFungi{form, "optFungi", "Kingdom", "Fun&gi"};
    OptionControl OptAnimalia{form, "OptAnimalia", "Kingdom", "An&imalia"};
    OptionControl optChromista{form, "optChromista", "Kingdom", "Chr&omista"};
    LabelControl lblPRank{form, "lblPRank", "Defaul&t Rank"};
    // Also shows a rank that the DataSet does not have.
    ComboControl cboPRank{form, "cboPRank"};
    LabelControl lblDatabase{form, "lblDatabase", "&DataSet"};
    TextControl txtDatabase{form, "txtDatabase"};
    ButtonControl CmdChange{form, "CmdChange", "C&hange..."};

    LabelControl fraAuthor{form, "fraAuthor", "Display Author"};
    OptionControl OptFullName{form, "OptFullName", "Author", "Fu&ll Name"};
    OptionControl OptAbbr{form, "OptAbbr", "Author", "A&bbreviated"};
    LabelControl fraWarnings{form, "fraWarnings", "Warnings"};
    OptionControl optNone{form, "optNone", "Warnings", "&None"};
    OptionControl optFirst{form, "optFirst", "Warnings", "First Onl&y"};
    OptionControl optAll{form, "optAll", "Warnings", "&All"};
    LabelControl fraSave{form, "fraSave", "Keep for the Next Record"};
    CheckControl chkRefs{form, "chkRefs", "R&eferences"};
    CheckControl chkAuth{form, "chkAuth", "A&uthor"};
    CheckControl chkParent{form, "chkParent", "Parent"};
    CheckControl chkComm{form, "chkComm", "Comments"};
    CheckControl chkAll{form, "chkAll", "Other Fields"};

    ButtonControl CmdReset{form, "CmdReset", "Reset"};
    ButtonControl cmdSave{form, "cmdSave", "&Save"};
    ButtonControl cmdCancel{form, "cmdCancel", "&Cancel"};

    // Help, Contents and Help, Search; optional.
    std::function<void()> HelpContentsCommand, HelpSearchCommand;

private:
    struct KingdomOption {
        OptionControl* option;
        std::string_view kingdom;
    };
    struct KeptField {
        CheckControl* box;
        std::string ApplicationState::*variable;
    };
    struct WarningOption {
        OptionControl* option;
        std::string_view word;
    };

    void ConnectCommands();
    void ShowPreferences();
    void FillRanks();
    void ShowRanksOf(std::string_view kingdom);
    void Change();
    void Reset();
    void Save();
    void TakeFromControls();

    ApplicationState& state_;
    IniProfile& profile_;
    Prompter& prompter_;
    std::string file_;
    const std::array<KingdomOption, 6> kingdoms_;
    const std::array<WarningOption, 3> warnings_;
    const std::array<KeptField, 5> kept_;
};

}  // namespace quillon::startup
