// ExpType, "Taxonomic Compare Export Type", and FrmTExport, "Export Taxonomy Data to File", which it leads
// to: the list of names of the open DataSet that the taxonomic compare reads. They have no command in the
// main window.
#pragma once

#include <string>

#include "core/controls.h"
#include "export/export_job.h"

namespace quillon::exporting {

class ExpType {
public:
    // `exportType` takes the choice: 1 for the name, 2 with its author, 3 with its rank, too. It must outlive
    // the form.
    ExpType(int& exportType, Prompter& prompter);

    Form form{"ExpType"};
    LabelControl fraType{form, "fraType", "Taxonomy Data to Export"};
    OptionControl optName{form, "optName", "Type", "Name"};
    OptionControl optAuthority{form, "optAuthority", "Type", "Name and Authority"};
    OptionControl optRank{form, "optRank", "Type", "Name, Authority and Rank"};
    ButtonControl cmdOK{form, "cmdOK", "&OK"};
    ButtonControl cmdCancel{form, "cmdCancel", "Ca&ncel"};

    // The command of cmdOK: keeps the choice, closes the form, and shows FrmTExport.
    void Continue();

private:
    int& exportType_;
    Prompter& prompter_;
};

class FrmTExport {
public:
    // `exportType` is what ExpType has left.
    FrmTExport(ApplicationState& state, store::Engine& engine, Prompter& prompter, EventPump& events,
               const Clock& clock, int exportType);

    Form form{"FrmTExport"};
    LabelControl lblDataSet{form, "lblDataSet"};
    LabelControl lblFile{form, "lblFile"};
    GaugeControl Gauge1{form, "Gauge1"};
    ButtonControl cmdOK{form, "cmdOK", "&Continue"};
    ButtonControl cmdCancel{form, "cmdCancel", "Ca&ncel"};

    // Asks for the file when the form comes up; without a name the form closes, and false is given.
    bool AskFile();
    // The command of cmdOK; nothing while an export runs. All taxa go into the list, whatever the filter.
    void Continue();
    // The command of cmdCancel: cancels a running export, and closes the form when none runs.
    void Cancel();

private:
    ExportResult WriteList();

    ApplicationState& state_;
    store::Engine& engine_;
    validation::ValidationOutside outside_;
    int exportType_;
};

}  // namespace quillon::exporting
