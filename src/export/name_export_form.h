// ExpType, "Taxonomic Compare Export Type", and FrmTExport, "Export Taxonomy Data to File", which it opens:
// exports the list of names of the open DataSet for the taxonomic compare.
#pragma once

#include "export/plain_export_form.h"

namespace quillon::exporting {

class ExpType {
public:
    // Stores the choice in `exportType`, which must outlive the form.
    ExpType(ListType& exportType, Prompter& prompter);

    Form form{"ExpType"};
    LabelControl fraType{form, "fraType", "Taxonomy Data to Export"};
    OptionControl optName{form, "optName", "Type", "Name"};
    OptionControl optAuthority{form, "optAuthority", "Type", "Name and Authority"};
    OptionControl optRank{form, "optRank", "Type", "Name, Authority and Rank"};
    ButtonControl cmdOK{form, "cmdOK", "&OK"};
    ButtonControl cmdCancel{form, "cmdCancel", "Ca&ncel"};

    // The command of cmdOK: stores the choice, closes the form, and shows FrmTExport.
    void Continue();

private:
    ListType& exportType_;
    Prompter& prompter_;
};

// Exports all taxa, whatever the filter.
class FrmTExport : public PlainExportForm {
public:
    // `exportType` is the choice made in ExpType.
    FrmTExport(ApplicationState& state, store::Engine& engine, Prompter& prompter, EventPump& events,
               const Clock& clock, ListType exportType);

private:
    static const Words kWords;
    ExportResult Write() override;

    ListType exportType_;
};

}  // namespace quillon::exporting
