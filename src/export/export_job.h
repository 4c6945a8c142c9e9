// One export from the opening of the DataSet to the file in its place: what the buttons of the export forms
// and the command of quillon-batch start. It takes DataSet, file and filter from the run state, tells what
// keeps it from going on, and asks before a file is written in another code page than CP1252. How it ended is
// told by the caller.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/application_state.h"
#include "core/outside.h"
#include "export/export_file.h"
#include "export/line_writer.h"
#include "export/tagged_run.h"
#include "store/engine.h"
#include "validation/validate_data_set.h"

namespace quillon::exporting {

inline constexpr std::string_view kExportCanceled = "Export Canceled!";
inline constexpr std::string_view kExportComplete = "Export Complete!";

enum class ExportKind {
    DataSet,
    Online,  // after a validation, and without what it refuses
    List,    // the partial list
};

struct ExportOrder {
    ExportKind kind = ExportKind::DataSet;
    int listType = 1;  // of a List
    Encoding encoding = Encoding::Cp1252;
};

enum class ExportOutcome {
    Done,
    Canceled,  // the lines written so far are in the file
    Refused,   // it needs UTF-8, and that was not wanted; nothing was written
    Failed,    // the reason has been told; nothing was written
};

struct ExportResult {
    ExportOutcome outcome = ExportOutcome::Failed;
    OddValues breaking;  // values that a reader of the file will break on
};

// "A Total of 12 Records were Exported."
std::string TotalText(const ApplicationState& state);
// Tells of values that a reader will break on; nothing when there are none.
void TellBreaking(Prompter& prompter, const OddValues& breaking);

class ExportJob {
public:
    // The gauge covers validation and export in one sweep. The logs of a validation go into the work
    // directory.
    ExportJob(ApplicationState& state, store::Engine& engine, validation::ValidationOutside outside);

    // Whether UTF-8 will do where CP1252 cannot hold the values; the prompter is asked when this is not set.
    std::function<bool(const OddValues&)> allowUtf8;
    // Told of each value that CP1252 cannot hold, as it comes; may be empty.
    LineWriter::Listener onForeign;

    // Overwrites gExportFile without asking. The rejected lists are empty before and after.
    ExportResult Run(const ExportOrder& order);

private:
    ExportResult WriteFile(const ExportOrder& order);
    void RefuseDataSets() const;
    // False when the validation failed: nothing is known of what it would refuse.
    bool WriteRecords(const ExportOrder& order, ExportTools& tools);
    bool ValidateForExport();
    bool AskUtf8(const OddValues& foreign);

    ApplicationState& state_;
    store::Engine& engine_;
    validation::ValidationOutside outside_;
};

}  // namespace quillon::exporting
