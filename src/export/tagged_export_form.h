// FrmDExport, "Export DataSet to File": writes the open DataSet as a tagged file under the current filter,
// with a log of its times.
#pragma once

#include <string>

#include "core/line_file.h"
#include "export/plain_export_form.h"

namespace quillon::exporting {

class FrmDExport : public PlainExportForm {
public:
    // "time.log" goes into `workDirectory`, or the current directory when it is empty.
    FrmDExport(ApplicationState& state, store::Engine& engine, Prompter& prompter, EventPump& events,
               const Clock& clock, std::string workDirectory);

private:
    static const Words kWords;
    ExportResult Write() override;
    ExportResult ReportLog(const LineFile& log);
};

}  // namespace quillon::exporting
