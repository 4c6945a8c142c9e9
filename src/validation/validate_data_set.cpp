#include "validation/validate_data_set.h"

#include <fmt/format.h>

#include <array>
#include <ctime>
#include <optional>

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

// One run, from the opening of the logs to their closing.
class Validation {
public:
    Validation(ApplicationState& state, const ValidationOutside& outside, store::DatabaseHandle database)
        : state_(state),
          outside_(outside),
          database_(std::move(database)),
          timeLog_(PathIn(outside.workDirectory, kTimeLogName)),
          log_(PathIn(outside.workDirectory, kLogName)) {
        result_.logPath = log_.Path();
        if (outside_.marks != nullptr) outside_.marks->clear();
    }

    ValidationResult Run() {
        if (!HasLogs()) return result_;
        timeLog_.Print("Begin Validation: " + TimeOfDay(outside_.clock));
        const auto kingdomId = KingdomIdOf(*database_, state_.gKingdomName);
        if (!kingdomId) {
            result_.wrongKingdom = true;
            CloseLogs();
            outside_.prompter.Message("The Kingdom in the Validate Dataset, " + database_->Name() +
                                      ", must match that in the 'Preferences'.");
            return result_;
        }
        result_.ran = true;
        CheckTables(*kingdomId);
        Finish();
        return result_;
    }

private:
    bool HasLogs() {
        for (const LineFile* file : {&timeLog_, &log_}) {
            if (file->Open()) continue;
            TellUnwritten(*file);
            return false;
        }
        return true;
    }

    void CountRows(selection::SelectedTaxa& taxa, const selection::Continue& goOn) {
        selection::CountBatchRecords(state_, *database_, taxa, goOn);
        state_.gRecordsTotal = state_.gValidatingForExport ? state_.gRecordsTotal + state_.gValidatedTotal
                                                           : state_.gValidatedTotal;
    }

    void CheckTables(int kingdomId) {
        const RunFacts facts = ReadRunFacts(*database_, kingdomId, KingdomNameOfDataSet(*state_.gDatabase),
                                            outside_.clock.Now());
        const selection::Continue goOn = [this] {
            outside_.events.Yield();
            return !state_.gBatchCancel;
        };
        selection::SelectedTaxa taxa(*database_, state_.gRecordFilter, goOn);
        CountRows(taxa, goOn);
        state_.gErrorsOccurred = false;
        ValidationLog log(state_, [this](const Finding& finding) { Write(finding); });
        const ValidationRun run{state_, *database_, facts, log, outside_.events, outside_.gauge, taxa};
        for (const TableCheck check : kTableChecks)
            if (!state_.gBatchCancel) check(run);
        result_.canceled = state_.gBatchCancel;
        result_.errors = state_.gErrorsOccurred;
    }

    void Write(const Finding& finding) {
        const FindingMark mark = PrintFinding(log_, finding);
        if (outside_.marks != nullptr) outside_.marks->push_back(mark);
    }

    void Finish() {
        database_->Close();
        CloseLog(log_);
        if (!state_.gBatchCancel && !state_.gValidatingForExport && !result_.logFailed) {
            outside_.prompter.WaitCursor(false);
            TellComplete();
            outside_.prompter.WaitCursor(true);
        }
        timeLog_.Print("End Validation: " + TimeOfDay(outside_.clock));
        CloseLog(timeLog_);
    }

    void TellComplete() {
        if (outside_.tellComplete) {
            outside_.tellComplete();
        } else if (!state_.gErrorsOccurred) {
            outside_.prompter.Message(kCompleteNoErrors);
        } else if (outside_.prompter.AskYesNo(kCompleteViewLog, kCompleteTitle)) {
            outside_.prompter.ShowModal("FrmVError");
        }
    }

    void CloseLogs() {
        CloseLog(timeLog_);
        CloseLog(log_);
    }
    void CloseLog(LineFile& file) {
        if (!file.Close()) TellUnwritten(file);
    }
    void TellUnwritten(const LineFile& file) {
        result_.logFailed = true;
        outside_.prompter.Message("File " + file.Path() + " cannot be written!");
    }

    ApplicationState& state_;
    const ValidationOutside& outside_;
    store::DatabaseHandle database_;
    LineFile timeLog_, log_;
    ValidationResult result_;
};

}  // namespace

std::string SystemClock::Now() const {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    std::array<char, 20> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &local);
    return text.data();
}

ValidationResult ValidateDataSet(ApplicationState& state, store::Engine& engine,
                                 const ValidationOutside& outside) {
    const store::DatabaseHandle database =
        engine.OpenDatabase(state.gValidatingForExport ? state.gExportPath : state.gDataSetPath);
    if (const auto message = selection::CheckRecordFilter(*database, state.gRecordFilter)) {
        outside.prompter.Message(*message);
        return {};
    }
    return Validation(state, outside, database).Run();
}

}  // namespace quillon::validation
