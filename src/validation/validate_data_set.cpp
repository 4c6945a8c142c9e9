#include "validation/validate_data_set.h"

#include <array>
#include <optional>
#include <vector>

#include "core/turns.h"
#include "selection/batch_counts.h"
#include "selection/record_filter.h"
#include "validation/log_file.h"

namespace quillon::validation {

namespace {

using TableCheck = void (*)(const ValidationRun&);
constexpr std::array<TableCheck, 8> kTableChecks = {
    ValidateTaxa,         ValidateAuthors,      ValidateReferenceLinks, ValidateExperts,
    ValidateOtherSources, ValidatePublications, ValidateVernaculars,    ValidateJurisdictions,
};

std::string TimeOfDay(const Clock& clock) {
    constexpr std::size_t lengthOfDate = 11;  // "yyyy-mm-dd "
    return clock.Now().substr(lengthOfDate);
}

// The files that a run reads, or that will be written after it. No log may replace them.
std::vector<std::string> FilesInUse(const ApplicationState& state) {
    std::vector<std::string> files = {state.gDataSetPath};
    if (state.gValidatingForExport) files.insert(files.end(), {state.gExportPath, state.gExportFile});
    return files;
}

// One run, from the opening of the files to their closing.
class Validation {
public:
    Validation(ApplicationState& state, const ValidationOutside& outside, store::DatabaseHandle database)
        : state_(state),
          outside_(outside),
          database_(std::move(database)),
          timeLog_(PathIn(outside.workDirectory, kTimeLogName), FilesInUse(state)),
          log_(PathIn(outside.workDirectory, kLogName), FilesInUse(state)) {
        if (outside.writeTable)
            table_.emplace(PathIn(outside.workDirectory, kTableName), FilesInUse(state), LineFile::kLineFeed);
        result_.logPath = log_.Path();
        if (outside_.marks != nullptr) outside_.marks->clear();
    }

    ValidationResult Run() {
        if (!HasFiles()) return result_;
        timeLog_.Print("Begin Validation: " + TimeOfDay(outside_.clock));
        const auto kingdomId = KingdomIdOf(*database_, state_.gKingdomName);
        if (!kingdomId) {
            result_.wrongKingdom = true;
            CloseFiles();
            outside_.prompter.Message("The Kingdom in the Validate Dataset, " + database_->Name() +
                                      ", must match that in the 'Preferences'.");
            return result_;
        }
        result_.ran = true;
        if (table_) table_->Print(kTableHeader);
        CheckTables(*kingdomId);
        Finish();
        return result_;
    }

private:
    bool HasFiles() {
        for (const LineFile* file : {&timeLog_, &log_, table_ ? &*table_ : &log_})
            if (!file->Open()) ReportUnwritten(*file);
        return !result_.logFailed;
    }

    void CountRows(selection::SelectedTaxa& taxa, Turns turns) {
        selection::CountBatchRecords(state_, *database_, taxa, turns);
        state_.gRecordsTotal = state_.gValidatingForExport ? state_.gRecordsTotal + state_.gValidatedTotal
                                                           : state_.gValidatedTotal;
    }

    void CheckTables(int kingdomId) {
        const RunFacts facts = ReadRunFacts(*database_, kingdomId, KingdomNameOfDataSet(*state_.gDatabase),
                                            outside_.clock.Now());
        Turns turns(state_, outside_.events);
        selection::SelectedTaxa taxa(*database_, state_.gRecordFilter, turns);
        CountRows(taxa, turns);
        state_.gErrorsOccurred = false;
        ValidationLog log(state_, [this](const Finding& finding) { Write(finding); });
        const ValidationRun run{state_, *database_, facts, log, turns, outside_.gauge, taxa};
        for (const TableCheck check : kTableChecks)
            if (!turns.Canceled()) check(run);
        result_.canceled = turns.Canceled();
        result_.errors = state_.gErrorsOccurred;
    }

    void Write(const Finding& finding) {
        const FindingMark mark = PrintFinding(log_, finding);
        if (table_) table_->Print(TableRow(finding));
        if (outside_.marks != nullptr) outside_.marks->push_back(mark);
    }

    void Finish() {
        database_->Close();
        CloseFile(log_);
        if (table_) CloseFile(*table_);
        if (!result_.canceled && !state_.gValidatingForExport && !result_.logFailed) ReportEnd();
        timeLog_.Print("End Validation: " + TimeOfDay(outside_.clock));
        CloseFile(timeLog_);
    }

    void ReportEnd() {
        if (outside_.reportEnd) {
            outside_.reportEnd();
        } else if (!state_.gErrorsOccurred) {
            outside_.prompter.Message(kCompleteNoErrors);
        } else if (outside_.prompter.AskYesNo(kCompleteViewLog, kCompleteTitle)) {
            outside_.prompter.ShowModal("FrmVError");
        }
    }

    void CloseFiles() {
        CloseFile(timeLog_);
        CloseFile(log_);
        if (table_) CloseFile(*table_);
    }
    void CloseFile(LineFile& file) {
        if (!file.Close()) ReportUnwritten(file);
    }
    // Reports once per run, because on a full disk all files fail.
    void ReportUnwritten(const LineFile& file) {
        if (!result_.logFailed) outside_.prompter.WarningMessage(file.Failure());
        result_.logFailed = true;
    }

    ApplicationState& state_;
    const ValidationOutside& outside_;
    store::DatabaseHandle database_;
    LineFile timeLog_, log_;
    std::optional<LineFile> table_;
    ValidationResult result_;
};

}  // namespace

ValidationResult ValidateDataSet(ApplicationState& state, store::Engine& engine,
                                 const ValidationOutside& outside) {
    const store::DatabaseHandle database =
        engine.OpenDatabase(state.gValidatingForExport ? state.gExportPath : state.gDataSetPath);
    if (const auto message = selection::CheckRecordFilter(*database, state.gRecordFilter)) {
        outside.prompter.Message(*message);
        return {};
    }
    if (outside.replacingLogs) outside.replacingLogs();
    return Validation(state, outside, database).Run();
}

}  // namespace quillon::validation
