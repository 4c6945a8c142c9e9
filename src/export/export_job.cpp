#include "export/export_job.h"

#include <fmt/format.h>

#include <string>
#include <utility>
#include <vector>

#include "core/attempt.h"
#include "core/line_file.h"
#include "core/running_flag.h"
#include "core/target_check.h"
#include "core/wait_cursor.h"
#include "export/tagged_export.h"
#include "selection/record_filter.h"
#include "store/lifecycle/file_copy.h"
#include "validation/log_file.h"

namespace quillon::exporting {

namespace {

constexpr std::string_view kForeignTitle = "Export DataSet";

std::string Values(std::int64_t count, std::string_view one, std::string_view many) {
    return fmt::format("{} {}", count, count == 1 ? one : many);
}

std::string ForeignText(const OddValues& foreign) {
    return fmt::format(
        "{} characters that CP1252, the code page of the file, does not have.  The first is {}.  Write the "
        "file as UTF-8 with a byte order mark instead?",
        Values(foreign.count, "value holds", "values hold"), Describe(foreign.first));
}

class RejectedLists {
public:
    explicit RejectedLists(ApplicationState& state) : state_(state) { Empty(); }
    ~RejectedLists() { Empty(); }
    RejectedLists(const RejectedLists&) = delete;
    RejectedLists& operator=(const RejectedLists&) = delete;

private:
    void Empty() {
        state_.gRejectedTaxa.clear();
        state_.gRejectedDocs.clear();
    }
    ApplicationState& state_;
};

}  // namespace

std::string EndText(const ApplicationState& state, ExportKind kind) {
    if (kind == ExportKind::List)
        return fmt::format("{} names were written to {}.", state.gExportedCount, state.gExportFile);
    return fmt::format("A Total of {} Records were Exported.", state.gExportedCount);
}

void ReportBreaking(Prompter& prompter, const OddValues& breaking) {
    if (breaking.count == 0) return;
    prompter.Message(fmt::format(
        "{} the separator or a line break, and a reader of the file will break the record there.  "
        "The first is {}",
        Values(breaking.count, "value holds", "values hold"), Describe(breaking.first)));
}

ExportJob::ExportJob(ApplicationState& state, store::Engine& engine, validation::ValidationOutside outside)
    : state_(state), engine_(engine), outside_(std::move(outside)) {}

ExportResult ExportJob::Run(const ExportOrder& order) {
    const RunningFlag running(state_);
    const WaitCursor wait(outside_.prompter);
    const RejectedLists lists(state_);
    try {
        return WriteFile(order);
    } catch (const ExportError& error) {
        outside_.prompter.WarningMessage(error.what());
    } catch (const std::exception& failure) {
        ReportFailure(outside_.prompter, failure);
    }
    return {};
}

// Refuses to overwrite an open DataSet, the exported one, or a log of the run.
void ExportJob::RefuseTarget(ExportKind kind) const {
    const std::string& file = state_.gExportFile;
    if (FaultOfTarget(file, {state_.gExportPath, state_.gDataSetPath}) == TargetFault::InUse)
        throw ExportError(fmt::format("'{}' is an open DataSet, and cannot be overwritten.", file));
    if (kind == ExportKind::Online) {
        const std::vector<std::string> logs = {PathIn(outside_.workDirectory, validation::kLogName),
                                               PathIn(outside_.workDirectory, validation::kTimeLogName)};
        if (FaultOfTarget(file, logs) == TargetFault::InUse)
            throw ExportError(
                fmt::format("'{}' is a log of the validation, and cannot be overwritten.", file));
    }
    store::RefuseFileInUse(engine_, file);
}

ExportResult ExportJob::WriteFile(const ExportOrder& order) {
    const store::DatabaseHandle database = engine_.OpenDatabase(state_.gExportPath);
    if (const auto wrong = selection::CheckRecordFilter(*database, state_.gRecordFilter))
        throw ExportError(*wrong);
    RefuseTarget(order.kind);
    Turns turns(state_, outside_.events);
    ExportFile file(state_.gExportFile, order.encoding);
    const bool anyText = order.encoding == Encoding::Utf8;
    LineWriter line(file, anyText ? LineWriter::Listener() : onForeign, [&turns] { return turns.Next(); });
    ExportTools tools{state_, *database, outside_.prompter, turns, outside_.gauge, line};
    state_.gRecordsDone = 0;
    if (!WriteRecords(order, tools)) return {};
    ExportResult result;
    result.breaking = line.Breaking();
    if (turns.Canceled()) {
        result.outcome = ExportOutcome::Canceled;
        return result;
    }
    const bool becameUtf8 = !anyText && file.CurrentEncoding() == Encoding::Utf8;
    if (becameUtf8 && !AskUtf8(line.Foreign())) {
        result.outcome = ExportOutcome::Refused;
        return result;
    }
    file.Publish();
    result.outcome = ExportOutcome::Done;
    return result;
}

bool ExportJob::WriteRecords(const ExportOrder& order, ExportTools& tools) {
    if (order.kind == ExportKind::List) {
        WriteNameList(tools, order.listType, order.allTaxa ? selection::kNoFilter : state_.gRecordFilter);
        return true;
    }
    state_.gValidatingForExport = order.kind == ExportKind::Online;
    if (state_.gValidatingForExport && !ValidateForExport()) return false;
    store::Job job(engine_);
    WriteTaggedFile(tools);
    job.End();
    return true;
}

// The validation uses the kingdom of the open DataSet, whichever DataSet is exported. A DataSet without the
// preferred kingdom is exported completely.
bool ExportJob::ValidateForExport() {
    if (state_.gDatabase == nullptr)
        throw ExportError("A DataSet must be open to export for the online system!");
    const validation::ValidationResult result = validation::ValidateDataSet(state_, engine_, outside_);
    return (result.ran || result.wrongKingdom) && !result.logFailed;
}

bool ExportJob::AskUtf8(const OddValues& foreign) {
    if (allowUtf8) return allowUtf8(foreign);
    return outside_.prompter.AskYesNo(ForeignText(foreign), kForeignTitle);
}

}  // namespace quillon::exporting
