// FrmNExport, "Export DataSet": chooses the DataSet, the file, its content and the records, and runs the
// export.
#pragma once

#include <functional>
#include <string>

#include "core/controls.h"
#include "export/export_job.h"

namespace quillon::exporting {

class FrmNExport {
public:
    // Loads the form, resets the state of a run and selects the open DataSet. The logs of a validation go
    // into `workDirectory`, or the current directory when it is empty; `marks` is for the error viewer and
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

    // Called when an export for the online system is about to replace the validation's log; whoever shows the
    // old one closes it.
    std::function<void()> ReplacingLog;

    // The command of cmdSelectDB: asks for the DataSet to export.
    void SelectDataSet();
    // The command of cmdExportFile: asks for the file to write.
    void SelectFile();
    // The file suggested in its dialog: the DataSet's name with ".qln" for its last four characters.
    std::string OfferedFile() const;
    // The command of cmdOK; does nothing while an export runs.
    void RunExport();
    // The command of cmdCancel: cancels a running export, or closes the form.
    void Cancel();
    // The filter set by the options and the combo boxes.
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
