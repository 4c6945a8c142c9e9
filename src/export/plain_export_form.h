// What FrmDExport and FrmTExport share: the open DataSet goes into a file that is asked for when the form
// comes up, with a gauge and two buttons. What is written is up to each of them. No command of the main
// window shows them.
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

    // Asks for the file when the form comes up. Without a name the form closes, and the result is false.
    bool AskFile();
    // The command of cmdOK; nothing while an export runs.
    void Continue();
    // The command of cmdCancel: cancels a running export, and closes the form when none runs.
    void Cancel();

protected:
    struct Words {
        std::string_view name, title, dataSetLine;
        std::string_view saveTitle, saveFilter, extension;  // of the dialog that asks for the file
    };
    // `words` must outlive the form. Logs go into `workDirectory`, the current one when empty.
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
