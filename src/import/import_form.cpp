#include "import/import_form.h"

#include <cstddef>
#include <utility>

namespace quillon::importing {

namespace {

constexpr std::string_view kFileTitle = "Open Internal Format Data File";
constexpr std::string_view kFileFilter =
    "QLN Files (*.qln)|*.qln|QLN Files (*.exp)|*.exp|Text Files (*.txt)|*.txt|Data Files (*.dat)|*.dat|"
    "Download Files (*.bin)|*.bin|All Files (*.*)|*.*";
constexpr std::string_view kCompleteTitle = "Import Complete";
constexpr std::string_view kCompleteWithErrors = "Import Complete -- Errors Occurred.  View error Log?";
constexpr std::string_view kCompleteWithFailures = "Import Complete -- Errors Occurred.";
constexpr std::string_view kNotCompleted = "Import Not Completed -- Errors.  View error Log?";

constexpr std::string_view kExistingTitle = "Importing into existing DataSet";
constexpr std::string_view kExistingQuestion =
    "You will be importing into a non-empty DataSet.\r"
    "If the imported data contains a Kingdom record,\r"
    "the existing Kingdom record will be deleted \r"
    "from the DataSet. Continue?";

// Every line of a file can fail, so the list is limited.
constexpr std::size_t kMostListed = 10'000;

}  // namespace

FrmImport::FrmImport(ApplicationState& state, store::Engine& engine, Prompter& prompter, EventPump& events,
                     std::string workDirectory)
    : state_(state),
      engine_(engine),
      prompter_(prompter),
      events_(events),
      workDirectory_(std::move(workDirectory)) {
    state_.gBatchRunning = false;
    state_.gBatchCancel = false;
    form.SetTitle("Import Data File");
    for (const std::string_view symbol :
         {",", "|", "!", "@", "$", "%", "^", "&", "?", "\\", "/", "#", ":", ";"})
        cboDelimiter.AddItem(symbol);
    cboDelimiter.SetListIndex(0);
    for (const std::string_view symbol : {"\"", "'", ""}) cboEnclosure.AddItem(symbol);
    cboEnclosure.SetListIndex(0);
    OptAscii.SetEnabled(false);
    OptORVA.SetValue(true);
    lstFailures.SetVisible(false);
    EnableSymbols();
    OptAscii.OnEdit([this] { EnableSymbols(); });
    OptORVA.OnEdit([this] { EnableSymbols(); });
    cmdOK.OnClick([this] { RunImport(); });
    cmdCancel.OnClick([this] { Cancel(); });
    form.OnUserClose([this] { Cancel(); });
}

void FrmImport::EnableSymbols() {
    cboDelimiter.SetEnabled(OptAscii.Value());
    cboEnclosure.SetEnabled(OptAscii.Value());
}

void FrmImport::Cancel() {
    if (finished_) return form.Close();
    state_.gBatchCancel = true;
    if (!state_.gBatchRunning) form.Close();
}

void FrmImport::RunImport() {
    if (state_.gBatchRunning) return;
    if (!OptORVA.Value()) {
        prompter_.Message("An Import Format must be selected!");
        return;
    }
    state_.gBatchRunning = true;
    const auto path = prompter_.FileToOpen(kFileTitle, kFileFilter);
    state_.gBatchRunning = false;
    if (path) ImportFile(*path);
}

void FrmImport::ImportFile(const std::string& path) {
    TaggedImport job(state_, engine_, prompter_, events_,
                     [this](double done) { Gauge1.SetValue(static_cast<int>(done)); });
    std::vector<std::string> failures;
    std::size_t notListed = 0;
    job.Failed = [&](const Failure& failure) {
        if (failures.size() < kMostListed)
            failures.push_back(TextOf(failure));
        else
            ++notListed;
    };
    job.Stage = [this](std::string_view stage) { lblStage.SetCaption(stage); };
    const ImportResult result = job.Run(path, workDirectory_);
    if (!result.found) return;
    ReportEnd(result);
    if (failures.empty() || result.canceled) return form.Close();
    if (notListed > 0) failures.push_back(std::to_string(notListed) + " more");
    ShowFailures(failures);
}

// Shows the failures and keeps the form open.
void FrmImport::ShowFailures(const std::vector<std::string>& failures) {
    for (const std::string& failure : failures) lstFailures.AddItem(failure);
    lstFailures.SetVisible(true);
    finished_ = true;
    cmdOK.SetEnabled(false);
    cmdCancel.SetCaption("&Close");
}

void FrmImport::ReportEnd(const ImportResult& result) {
    if (result.completed) Gauge1.SetValue(100);
    lblStage.SetCaption("");
    if (result.canceled) return prompter_.Message(kImportCanceled);
    for (const std::string& note : result.notes) prompter_.Message(note);
    if (!result.errors && result.completed) return prompter_.Message(kImportComplete);
    ReportErrors(result);
}

// Offers the log only when there are findings.
void FrmImport::ReportErrors(const ImportResult& result) {
    if (result.completed && !result.findings) return prompter_.Message(kCompleteWithFailures);
    const std::string_view question = result.completed ? kCompleteWithErrors : kNotCompleted;
    if (prompter_.AskYesNo(question, kCompleteTitle)) prompter_.ShowModal("FrmIError");
}

bool MayImport(const ApplicationState& state, Prompter& prompter) {
    return state.gDataSetIsNew || prompter.AskBeforeLoss(kExistingQuestion, kExistingTitle);
}

ImportOutcome ImportCommand(ApplicationState& state, Prompter& prompter, const std::function<bool()>& stays) {
    if (!state.gDataSetOpen) {
        prompter.Message("A DataSet must be open to import data!");
        return ImportOutcome::NotStarted;
    }
    if (!MayImport(state, prompter)) return ImportOutcome::NotStarted;
    if (stays && stays()) return ImportOutcome::NotStarted;
    prompter.ShowModal("FrmImport");
    return state.gBatchCancel ? ImportOutcome::Canceled : ImportOutcome::Done;
}

}  // namespace quillon::importing
