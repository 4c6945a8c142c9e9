// The modal forms of the program, each played by the next lines of the script, and the commands around them.
#include "curation/clean_up.h"
#include "export/export_form.h"
#include "export/name_export_form.h"
#include "export/tagged_export_form.h"
#include "import/import_error_form.h"
#include "import/import_form.h"
#include "script/script_program.h"
#include "startup/about_form.h"
#include "startup/preferences_form.h"
#include "startup/start_up_forms.h"
#include "validation/validate_form.h"
#include "validation/validation_error_form.h"

namespace quillon::script {

void ScriptProgram::RegisterForms() {
    RegisterDialogs();
    RegisterCleanUp();
    RegisterJobs();
    RegisterExports();
}

void ScriptProgram::RegisterDialogs() {
    prompter_.Register("FrmAbout", [this] {
        startup::FrmAbout about(state_.gVersion);
        player_->PlayModal(about.form);
    });
    prompter_.Register("FrmKingdom", [this] {
        startup::FrmKingdom kingdom(state_, prompter_);
        player_->PlayModal(kingdom.form);
    });
    prompter_.Register("frmNoDB", [this] {
        startup::FrmNoDB noDataSet(state_, lifecycle_, prompter_);
        player_->PlayModal(noDataSet.form);
    });
    prompter_.Register("FrmPreferences", [this] {
        startup::FrmPreferences preferences(state_, profile_, prompter_, options_.preferencesFile);
        player_->PlayModal(preferences.form);
    });
}

void ScriptProgram::RegisterCleanUp() {
    prompter_.Register("CleanUp", [this] {
        curation::CleanUp form(state_, engine_, prompter_);
        form.TURecsModified.Connect([this](const std::vector<int>& taxa) { recView_.TaxaModified(taxa); });
        form.Changed.Connect([this] { recView_.ShowModified(); });
        while (form.Continue()) continue;
        formWork_ = [&form] { return form.Continue(); };
        player_->PlayModal(form.form);
        formWork_ = nullptr;
    });
}

void ScriptProgram::RegisterJobs() {
    const std::string& folder = options_.workDirectory;
    prompter_.Register("FrmImport", [this, &folder] {
        importing::FrmImport import(state_, engine_, prompter_, pump_, folder);
        player_->PlayModal(import.form);
    });
    prompter_.Register("FrmIError", [this, &folder] {
        importing::FrmIError log(state_, prompter_, folder);
        player_->PlayModal(log.form);
    });
    prompter_.Register("frmValidate", [this, &folder] {
        validation::frmValidate validate(state_, engine_, prompter_, pump_, clock_, folder, findings_);
        player_->PlayModal(validate.form);
    });
    // In a window of its own it stays beside the main form; here the lines that follow work on it.
    prompter_.Register("FrmVError", [this, &folder] {
        validation::FrmVError log(state_, prompter_, pump_, folder, findings_,
                                  [this](int qb_id, std::string_view tab) { GoToTaxon(qb_id, tab); });
        player_->PlayModal(log.form);
    });
}

void ScriptProgram::RegisterExports() {
    const std::string& folder = options_.workDirectory;
    prompter_.Register("FrmNExport", [this, &folder] {
        exporting::FrmNExport dataSet(state_, engine_, prompter_, pump_, clock_, folder, findings_);
        player_->PlayModal(dataSet.form);
    });
    prompter_.Register("FrmDExport", [this, &folder] {
        exporting::FrmDExport form(state_, engine_, prompter_, pump_, clock_, folder);
        if (form.AskFile()) player_->PlayModal(form.form);
    });
    prompter_.Register("ExpType", [this] {
        exporting::ExpType form(exportType_, prompter_);
        player_->PlayModal(form.form);
    });
    prompter_.Register("FrmTExport", [this] {
        exporting::FrmTExport form(state_, engine_, prompter_, pump_, clock_, exportType_);
        if (form.AskFile()) player_->PlayModal(form.form);
    });
}

// A failed import may have replaced the handle of the DataSet. An unsaved record is discarded only after the
// import has run.
editor::ImportEnd ScriptProgram::Import() {
    explorer_.ListV().LoadAll(pump_);
    const auto before = state_.gDatabase;
    const auto outcome =
        importing::ImportCommand(state_, prompter_, [this] { return !lifecycle_.MayLoseRecord(); });
    if (state_.gDatabase != before) explorer_.ListV().Reattach(state_.gDatabase);
    switch (outcome) {
        case importing::ImportOutcome::Canceled:
            return editor::ImportEnd::Canceled;
        case importing::ImportOutcome::Done:
            lifecycle_.DiscardRecord();
            return editor::ImportEnd::Done;
        case importing::ImportOutcome::NotStarted:
            break;
    }
    return editor::ImportEnd::NotStarted;
}

void ScriptProgram::GoToTaxon(int qb_id, std::string_view tab) {
    if (!explorer_.ListDblClick(qb_id))
        return prompter_.Message("The taxon of this record is not in the explorer.", "");
    if (!explorer_.IsRecord(qb_id)) return;  // the user stays on an unsaved record
    TabStripControl& tabs = recView_.Controls().TabStrip1;
    tabs.UserSelect(tabs.IndexOf(tab));
}

}  // namespace quillon::script
