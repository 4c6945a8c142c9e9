// One export, from opening the DataSet to publishing the file. The export forms and quillon-batch run it. It
// reads DataSet, file and filter from the state, reports failures, and asks before it writes a file in UTF-8.
// The caller reports how it ended.
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
    Online,  // after a validation, without rejected records
    List,    // the partial list
};

struct ExportOrder {
    ExportKind kind = ExportKind::DataSet;
    ListType listType = ListType::Name;  // of a List
    bool allTaxa = false;                // a List that ignores gRecordFilter
    Encoding encoding = Encoding::Cp1252;
};

// In every case but Done the file is unchanged, and no temporary file is left.
enum class ExportOutcome {
    Done,
    Canceled,
    Refused,  // it needs UTF-8, which was declined
    Failed,   // the reason has been reported
};

struct ExportResult {
    ExportOutcome outcome = ExportOutcome::Failed;
    OddValues breaking;  // values that a reader of the file will misread
};

// The message at the end of an export: "A Total of 12 Records were Exported.", or "12 names were written to
// FILE." for a List.
std::string EndText(const ApplicationState& state, ExportKind kind);
// Reports values that a reader will misread, if any.
void ReportBreaking(Prompter& prompter, const OddValues& breaking);

class ExportJob {
public:
    // The gauge covers validation and export together. The logs of a validation go into the work directory.
    ExportJob(ApplicationState& state, store::Engine& engine, validation::ValidationOutside outside);

    // Decides whether to write UTF-8 when CP1252 cannot hold the values; if unset, the user is asked.
    std::function<bool(const OddValues&)> allowUtf8;
    // Receives each value that CP1252 cannot hold; may be empty.
    LineWriter::Listener onForeign;

    // Overwrites gExportFile without asking, but never an open DataSet. Sets gBatchRunning meanwhile;
    // gBatchCancel ends the run at the next row. Clears the rejected lists before and after.
    ExportResult Run(const ExportOrder& order);

private:
    ExportResult WriteFile(const ExportOrder& order);
    void RefuseTarget(ExportKind kind) const;
    // False when the validation failed, because the records to omit are then unknown.
    bool WriteRecords(const ExportOrder& order, ExportTools& tools);
    bool ValidateForExport();
    bool AskUtf8(const OddValues& foreign);

    ApplicationState& state_;
    store::Engine& engine_;
    validation::ValidationOutside outside_;
};

}  // namespace quillon::exporting
