#include "export/name_export_form.h"

#include <utility>

#include "export/export_paths.h"
#include "selection/record_filter.h"

namespace quillon::exporting {

namespace {

constexpr std::string_view kSaveTitle = "Save Taxonomy Data As";
constexpr std::string_view kSaveFilter =
    "Taxonomy Compare Export Files (*.TXM)|*.txm|Text Files (*.TXT)|*.txt|List Files (*.LIS)|*.lis|All Files "
    "(*.*)|*.*";
constexpr const char* kTaxonomyLine = "Export Taxonomy Data From: ";

}  // namespace

ExpType::ExpType(int& exportType, Prompter& prompter) : exportType_(exportType), prompter_(prompter) {
    form.SetTitle("Taxonomic Compare Export Type");
    optName.SetValue(true);
    cmdOK.OnClick([this] { Continue(); });
    cmdCancel.OnClick([this] { form.Close(); });
}

void ExpType::Continue() {
    exportType_ = optRank.Value() ? 3 : (optAuthority.Value() ? 2 : 1);
    form.Close();
    prompter_.ShowModal("FrmTExport");
}

FrmTExport::FrmTExport(ApplicationState& state, store::Engine& engine, Prompter& prompter, EventPump& events,
                       const Clock& clock, int exportType)
    : state_(state), engine_(engine), outside_{prompter, events, clock, {}, {}}, exportType_(exportType) {
    outside_.gauge = [this](double done) { Gauge1.SetValue(static_cast<int>(done)); };
    state_.gBatchRunning = false;
    state_.gBatchCancel = false;
    state_.gExportPath = state_.gDataSetPath;
    state_.gExportFile.clear();
    form.SetTitle("Export Taxonomy Data to File");
    lblDataSet.SetCaption(kTaxonomyLine + state_.gExportPath);
    lblFile.SetCaption(kFileLine);
    cmdOK.OnClick([this] { Continue(); });
    cmdCancel.OnClick([this] { Cancel(); });
    form.OnUserClose([this] { Cancel(); });
}

bool FrmTExport::AskFile() {
    const auto path = outside_.prompter.FileToSave(kSaveTitle, kSaveFilter, true);
    if (!path || path->empty()) {
        form.Close();
        return false;
    }
    state_.gExportFile = WithExtension(*path, ".TXM");
    lblFile.SetCaption(kFileLine + state_.gExportFile);
    return true;
}

void FrmTExport::Continue() {
    if (state_.gBatchRunning) return;
    state_.gBatchRunning = true;
    const ExportResult result = WriteList();
    if (result.outcome != ExportOutcome::Failed)
        outside_.prompter.Message(result.outcome == ExportOutcome::Done ? kExportComplete : kExportCanceled);
    if (result.outcome == ExportOutcome::Done) TellBreaking(outside_.prompter, result.breaking);
    state_.gBatchRunning = false;
    form.Close();
}

ExportResult FrmTExport::WriteList() {
    const std::string filter = std::exchange(state_.gRecordFilter, std::string(selection::kNoFilter));
    ExportOrder order;
    order.kind = ExportKind::List;
    order.listType = exportType_;
    ExportResult result = ExportJob(state_, engine_, outside_).Run(order);
    state_.gRecordFilter = filter;
    return result;
}

void FrmTExport::Cancel() {
    if (state_.gBatchRunning)
        state_.gBatchCancel = true;
    else
        form.Close();
}

}  // namespace quillon::exporting
