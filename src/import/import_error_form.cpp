#include "import/import_error_form.h"

#include "core/line_file.h"
#include "import/import_log.h"

namespace quillon::importing {

FrmIError::FrmIError(const ApplicationState& state, Prompter& prompter, const std::string& workDirectory)
    : LogForm("FrmIError", "Import Error Log", state, prompter, quillon::PathIn(workDirectory, kLogName),
              quillon::PathIn(workDirectory, kLogName)) {
    txtError.SetText(ReadLog(logPath_));
    txtError.SetLocked(true);
}

}  // namespace quillon::importing
