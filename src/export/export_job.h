// One export from the opening of the DataSet to the file in its place: what the buttons of the export forms
// and the command of quillon-batch start. It takes DataSet, file and filter from the run state, reports what
// keeps it from going on, and asks before a file is written in another code page than CP1252. How it ended is
// reported by the caller.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/application_state.h"
#include "core/outside.h"
#include "export/export_file.h"
#include "export/line_writer.h"
#include "export/name_list.h"
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
    ListType listType = ListType::Name;  // of a List
    bool allTaxa = false;                // a List of all taxa, whatever gRecordFilter says
    Encoding encoding = Encoding::Cp1252;
};

// In every case but Done the file is as it was before, and nothing is left beside it.
enum class ExportOutcome {
    Done,
    Canceled,
    Refused,  // it needs UTF-8, and that was declined
    Failed,   // the reason has been reported
};

struct ExportResult {
    ExportOutcome outcome = ExportOutcome::Failed;
    OddValues breaking;  // values that a reader of the file will break on
};

// How a finished export ends: "A Total of 12 Records were Exported.", and "12 names were written to FILE."
// for a List.
std::string EndText(const ApplicationState& state, ExportKind kind);
// Reports values that a reader will break on; nothing when there are none.
void ReportBreaking(Prompter& prompter, const OddValues& breaking);

class ExportJob {
public:
    // The gauge covers validation and export in one sweep. The logs of a validation go into the work
    // directory.
    ExportJob(ApplicationState& state, store::Engine& engine, validation::ValidationOutside outside);

    // Whether UTF-8 will do where CP1252 cannot hold the values; the prompter is asked when this is not set.
    std::function<bool(const OddValues&)> allowUtf8;
    // Receives each value that CP1252 cannot hold, as it comes; may be empty.
    LineWriter::Listener onForeign;

    // Overwrites gExportFile without asking, but never a DataSet that is open. gBatchRunning is set
    // meanwhile, and gBatchCancel ends the run at the next row. The rejected lists are empty before and
    // after.
    ExportResult Run(const ExportOrder& order);

private:
    ExportResult WriteFile(const ExportOrder& order);
    void RefuseTarget(ExportKind kind) const;
    // False when the validation failed: nothing is known of what it would refuse.
    bool WriteRecords(const ExportOrder& order, ExportTools& tools);
    bool ValidateForExport();
    bool AskUtf8(const OddValues& foreign);

    ApplicationState& state_;
    store::Engine& engine_;
    validation::ValidationOutside outside_;
};

}  // namespace quillon::exporting
