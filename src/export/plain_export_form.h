// The base of FrmDExport and FrmTExport: asks for a file when the form opens, and exports the open DataSet to
// it, with a gauge and two buttons. The derived forms define what is written. No command of the main window
// shows them yet.
#pragma once

#include <string>
#include <string_view>

#include "core/controls.h"
#include "export/export_job.h"

namespace quillon::exporting {

class PlainExportForm {
public:
    virtual ~PlainExportForm() = default;
    PlainExportForm(const PlainExportForm&) = delete;
    PlainExportForm& operator=(const PlainExportForm&) = delete;

    Form form;
    LabelControl lblDataSet{form, "lblDataSet"};
    LabelControl lblFile{form, "lblFile"};
    GaugeControl Gauge1{form, "Gauge1"};
    ButtonControl cmdOK{form, "cmdOK", "&Continue"};
    ButtonControl cmdCancel{form, "cmdCancel", "Ca&ncel"};

    // Asks for the file when the form opens. Without a file the form closes and the result is false.
    bool AskFile();
    // The command of cmdOK; does nothing while an export runs.
    void Continue();
    // The command of cmdCancel: cancels a running export, or closes the form.
    void Cancel();

protected:
    struct Words {
        std::string_view name, title, dataSetLine;
        std::string_view saveTitle, saveFilter, extension;  // of the dialog that asks for the file
    };
    // `words` must outlive the form. Logs go into `workDirectory`, or the current directory when it is empty.
    PlainExportForm(ApplicationState& state, store::Engine& engine, Prompter& prompter, EventPump& events,
                    const Clock& clock, const Words& words, std::string workDirectory = {});

    ApplicationState& state_;
    store::Engine& engine_;
    validation::ValidationOutside outside_;

private:
    virtual ExportResult Write() = 0;

    const Words& words_;
};

}  // namespace quillon::exporting
