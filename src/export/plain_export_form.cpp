#include "export/plain_export_form.h"

#include <utility>

#include "export/form_parts.h"

namespace quillon::exporting {

PlainExportForm::PlainExportForm(ApplicationState& state, store::Engine& engine, Prompter& prompter,
                                 EventPump& events, const Clock& clock, const Words& words,
                                 std::string workDirectory)
    : form(std::string(words.name)),
      state_(state),
      engine_(engine),
      outside_{prompter, events, clock, {}, std::move(workDirectory)},
      words_(words) {
    outside_.gauge = [this](double done) { Gauge1.SetValue(static_cast<int>(done)); };
    state_.gBatchRunning = false;
    state_.gBatchCancel = false;
    state_.gExportPath = state_.gDataSetPath;
    state_.gExportFile.clear();
    form.SetTitle(std::string(words.title));
    lblDataSet.SetCaption(std::string(words.dataSetLine) + state_.gExportPath);
    lblFile.SetCaption(kFileLine);
    cmdOK.OnClick([this] { Continue(); });
    cmdCancel.OnClick([this] { Cancel(); });
    form.OnUserClose([this] { Cancel(); });
}

bool PlainExportForm::AskFile() {
    const auto path = outside_.prompter.FileToSave(words_.saveTitle, words_.saveFilter, true);
    if (!path || path->empty()) {
        form.Close();
        return false;
    }
    state_.gExportFile = WithExtension(*path, words_.extension);
    lblFile.SetCaption(std::string(kFileLine) + state_.gExportFile);
    return true;
}

void PlainExportForm::Continue() {
    if (state_.gBatchRunning) return;
    const ExportResult result = Write();
    if (result.outcome != ExportOutcome::Failed)
        outside_.prompter.Message(result.outcome == ExportOutcome::Done ? kExportComplete : kExportCanceled);
    if (result.outcome == ExportOutcome::Done) ReportBreaking(outside_.prompter, result.breaking);
    form.Close();
}

void PlainExportForm::Cancel() {
    if (state_.gBatchRunning)
        state_.gBatchCancel = true;
    else
        form.Close();
}

}  // namespace quillon::exporting
