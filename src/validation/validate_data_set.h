// The driver of a validation: the files, the check of the kingdom, the eight table checks in their order, and
// the message at the end. frmValidate, the export for the online system and quillon-batch call it. It changes
// no data.
#pragma once

#include <functional>
#include <string>

#include "core/application_state.h"
#include "core/gauge.h"
#include "core/outside.h"
#include "store/engine.h"
#include "validation/findings.h"
#include "validation/table_checks.h"

namespace quillon::validation {

inline constexpr std::string_view kCompleteTitle = "Validation Complete";
inline constexpr std::string_view kCompleteNoErrors = "Validation Complete -- No Errors!";
inline constexpr std::string_view kCompleteViewLog =
    "Validation Complete -- Errors Occurred.  View error Log?";

// The parameters of a run besides the state.
struct ValidationOutside {
    Prompter& prompter;
    EventPump& events;
    const Clock& clock;
    Gauge gauge;
    std::string workDirectory;  // for the logs; "" for the current directory
    // Called instead of the question and the message at the end of a run that is not for an export.
    std::function<void()> reportEnd = {};
    // Receives the mark of each finding, for the error viewer; may be nullptr.
    FindingMarks* marks = nullptr;
    // Also writes "validate.tsv" beside the log.
    bool writeTable = false;
    // Runs before the logs of the last run are replaced: whatever shows them lets them go.
    std::function<void()> replacingLogs = {};
};

struct ValidationResult {
    bool ran = false;           // the filter, the files and the kingdom were valid
    bool wrongKingdom = false;  // it did not begin because the DataSet lacks the preferred kingdom
    bool logFailed = false;     // one of the files could not be opened or written completely
    bool canceled = false;
    bool errors = false;  // there were findings
    std::string logPath;
};

// Validates the open DataSet, or with gValidatingForExport the one to export, under gRecordFilter. Reports
// refusals. Throws StoreError.
ValidationResult ValidateDataSet(ApplicationState& state, store::Engine& engine,
                                 const ValidationOutside& outside);

}  // namespace quillon::validation
