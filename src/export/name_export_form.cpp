#include "export/name_export_form.h"

#include "export/form_parts.h"

namespace quillon::exporting {

ExpType::ExpType(ListType& exportType, Prompter& prompter) : exportType_(exportType), prompter_(prompter) {
    form.SetTitle("Taxonomic Compare Export Type");
    optName.SetValue(true);
    cmdOK.OnClick([this] { Continue(); });
    cmdCancel.OnClick([this] { form.Close(); });
}

void ExpType::Continue() {
    exportType_ = ChosenListType(optAuthority, optRank);
    form.Close();
    prompter_.ShowModal("FrmTExport");
}

constexpr PlainExportForm::Words FrmTExport::kWords{
    "FrmTExport",
    "Export Taxonomy Data to File",
    "Export Taxonomy Data From: ",
    "Save Taxonomy Data As",
    "Taxonomy Compare Export Files (*.TXM)|*.txm|Text Files (*.TXT)|*.txt|List Files (*.LIS)|*.lis|All Files "
    "(*.*)|*.*",
    ".TXM",
};

FrmTExport::FrmTExport(ApplicationState& state, store::Engine& engine, Prompter& prompter, EventPump& events,
                       const Clock& clock, ListType exportType)
    : PlainExportForm(state, engine, prompter, events, clock, kWords), exportType_(exportType) {}

ExportResult FrmTExport::Write() {
    ExportOrder order;
    order.kind = ExportKind::List;
    order.listType = exportType_;
    order.allTaxa = true;
    return ExportJob(state_, engine_, outside_).Run(order);
}

}  // namespace quillon::exporting
