// FrmNExport, "Export DataSet": chooses the DataSet, the file, what goes into it and which records, and runs
// the export. The window over it shows the controls and passes on what the user does.
#pragma once

#include <string>

#include "core/controls.h"
#include "export/export_job.h"

namespace quillon::exporting {

class FrmNExport {
public:
    // Loads the form: no export runs, none is canceled, the open DataSet is the one to export. The logs of a
    // validation go into `workDirectory`, the current one when empty; `marks` is for the error viewer, and
    // must outlive the form.
    FrmNExport(ApplicationState& state, store::Engine& engine, Prompter& prompter, EventPump& events,
               const Clock& clock, std::string workDirectory, validation::FindingMarks& marks);

    Form form{"FrmNExport"};
    LabelControl lblDataSet{form, "lblDataSet"};
    ButtonControl cmdSelectDB{form, "cmdSelectDB", "Browse"};
    LabelControl lblFile{form, "lblFile"};
    ButtonControl cmdExportFile{form, "cmdExportFile", "New File"};
    LabelControl FraExport{form, "FraExport", "Export Options"};
    OptionControl OptDataSet{form, "OptDataSet", "Export", "DataSet"};
    OptionControl OptOnline{form, "OptOnline", "Export", "For Online System"};
    OptionControl OptPartial{form, "OptPartial", "Export", "Partial (Name, Authority, Rank)"};
    LabelControl fraPartial{form, "fraPartial", "Partial Export Options"};
    OptionControl optName{form, "optName", "Partial", "Name"};
    OptionControl optAuthority{form, "optAuthority", "Partial", "Name and Authority"};
    OptionControl optRank{form, "optRank", "Partial", "Name, Authority and Rank"};
    LabelControl fraFilter{form, "fraFilter", "Filter Export Records"};
    OptionControl optNoFilter{form, "optNoFilter", "Filter", "No Filter"};
    OptionControl optModified{form, "optModified", "Filter", "Export only Changed and New Records"};
    OptionControl optColumn{form, "optColumn", "Filter", "Filter Export by:"};
    ComboControl cboFields{form, "cboFields"};
    ComboControl cboOperators{form, "cboOperators"};
    ComboControl cboValues{form, "cboValues"};
    GaugeControl Gauge1{form, "Gauge1"};
    ButtonControl cmdOK{form, "cmdOK", "&OK"};
    ButtonControl cmdCancel{form, "cmdCancel", "Ca&ncel"};

    // The command of cmdSelectDB: asks for the DataSet to export.
    void SelectDataSet();
    // The command of cmdExportFile: asks for the file to write.
    void SelectFile();
    // The file that its dialog offers: the DataSet's name with ".qln" for its last four characters.
    std::string OfferedFile() const;
    // The command of cmdOK; nothing while an export runs.
    void RunExport();
    // The command of cmdCancel: cancels a running export, and closes the form when none runs.
    void Cancel();
    // The filter that the options and the combo boxes mean.
    std::string Filter() const;

private:
    void FillFilter();
    void EnableChoices();
    void ShowPaths();
    ExportOrder Order() const;
    void Export();
    void ReportEnd(ExportKind kind, const ExportResult& result);
    void ReportTotal(ExportKind kind);

    ApplicationState& state_;
    store::Engine& engine_;
    validation::ValidationOutside outside_;
};

// The command File, Export.
void ExportCommand(Prompter& prompter);

}  // namespace quillon::exporting
