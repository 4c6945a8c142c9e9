// The driver of a validation: the logs, the kingdom's check, the eight table checks in their order, and the
// word at the end. frmValidate, the export for the online system and quillon-batch call it. It changes no
// data.
#pragma once

#include <functional>
#include <string>

#include "core/application_state.h"
#include "core/outside.h"
#include "store/engine.h"
#include "validation/findings.h"
#include "validation/table_checks.h"

namespace quillon::validation {

inline constexpr std::string_view kCompleteTitle = "Validation Complete";
inline constexpr std::string_view kCompleteNoErrors = "Validation Complete -- No Errors!";
inline constexpr std::string_view kCompleteViewLog =
    "Validation Complete -- Errors Occurred.  View error Log?";

// The time of this machine.
class SystemClock : public Clock {
public:
    std::string Now() const override;
};

// What a run needs besides the run state.
struct ValidationOutside {
    Prompter& prompter;
    EventPump& events;
    const Clock& clock;
    Gauge gauge;
    std::string workDirectory;  // takes "validate.log" and "vtime.log"; "" for the current directory
    // In place of the question and the message at the end of a run that is not for an export.
    std::function<void()> tellComplete = {};
    // Takes where each finding stands in the log, for the error viewer; nullptr when there is none.
    FindingMarks* marks = nullptr;
};

struct ValidationResult {
    bool ran = false;           // the filter, the logs and the kingdom let it begin
    bool wrongKingdom = false;  // it did not begin, for the DataSet lacks the kingdom of the preferences
    bool logFailed = false;     // one of the logs could not be opened, or is not whole
    bool canceled = false;
    bool errors = false;  // there were findings
    std::string logPath;
};

// Validates the open DataSet, or with gValidatingForExport the one to export, under gRecordFilter. Refusals
// are told; the errors of the store pass through.
ValidationResult ValidateDataSet(ApplicationState& state, store::Engine& engine,
                                 const ValidationOutside& outside);

}  // namespace quillon::validation
