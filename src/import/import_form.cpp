#include "import/import_form.h"

#include <utility>

namespace quillon::importing {

namespace {

constexpr std::string_view kFileTitle = "Open Internal Format Data File";
constexpr std::string_view kFileFilter =
    "QLN Files (*.qln)|*.qln|QLN Files (*.exp)|*.exp|Text Files (*.txt)|*.txt|Data Files (*.dat)|*.dat|"
    "Download Files (*.bin)|*.bin|All Files (*.*)|*.*";
constexpr std::string_view kCompleteTitle = "Import Complete";
constexpr std::string_view kCompleteWithErrors = "Import Complete -- Errors Occurred.  View error Log?";
constexpr std::string_view kNotCompleted = "Import Not Completed -- Errors.  View error Log?";

constexpr std::string_view kExistingTitle = "Importing into existing DataSet";
constexpr std::string_view kExistingQuestion =
    "You will be importing into a non-empty DataSet.\r"
    "If the imported data contains a Kingdom record,\r"
    "the existing Kingdom record will be deleted \r"
    "from the DataSet. Continue?";

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
    const ImportResult result = job.Run(path, workDirectory_);
    if (!result.found) return;
    if (result.completed)
        TellCompleted(result);
    else
        TellNotCompleted(result);
    form.Close();
}

void FrmImport::TellCompleted(const ImportResult& result) {
    Gauge1.SetValue(100);
    if (result.canceled) {
        prompter_.Message(kImportCanceled);
    } else if (!result.errors) {
        prompter_.Message(kImportComplete);
    } else if (prompter_.AskYesNo(kCompleteWithErrors, kCompleteTitle)) {
        prompter_.ShowModal("FrmIError");
    }
}

void FrmImport::TellNotCompleted(const ImportResult& result) {
    if (result.canceled) {
        prompter_.Message(kImportCanceled);
    } else if (prompter_.AskYesNo(kNotCompleted, kCompleteTitle)) {
        prompter_.ShowModal("FrmIError");
    }
}

ImportOutcome ImportCommand(ApplicationState& state, Prompter& prompter) {
    if (!state.gDataSetOpen) {
        prompter.Message("A DataSet must be open to import data!");
        return ImportOutcome::NotStarted;
    }
    if (!state.gDataSetIsNew && !prompter.AskYesNo(kExistingQuestion, kExistingTitle))
        return ImportOutcome::NotStarted;
    prompter.ShowModal("FrmImport");
    return state.gBatchCancel ? ImportOutcome::Canceled : ImportOutcome::Done;
}

}  // namespace quillon::importing
