#include "ui/desktop_program.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStatusBar>

#include "core/version.h"
#include "core/wait_cursor.h"
#include "export/tagged_export_form.h"
#include "startup/preferences_form.h"
#include "ui/about_window.h"
#include "ui/application.h"
#include "ui/clean_up_window.h"
#include "ui/export_type_window.h"
#include "ui/export_window.h"
#include "ui/guard.h"
#include "ui/import_window.h"
#include "ui/kingdom_window.h"
#include "ui/no_db_window.h"
#include "ui/plain_export_window.h"
#include "ui/preferences_window.h"
#include "ui/text_convert.h"
#include "ui/validate_window.h"

namespace quillon::ui {

namespace {

constexpr int kFailed = 3;          // exit status
constexpr int kNoteLasts = 10'000;  // milliseconds

// Lets windows repaint and finish, but ignores user input.
class QuietPump : public EventPump {
public:
    void Yield() override { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }
};

}  // namespace

DesktopProgram::DesktopProgram(Prompter* prompter, std::string workDirectory, std::string preferencesFile)
    : prompter_(prompter != nullptr ? *prompter : desktop_),
      quiet_(std::make_unique<QuietPump>()),
      workDirectory_(std::move(workDirectory)),
      preferencesFile_(std::move(preferencesFile)),
      profile_(prompter_),
      lifecycle_(state_, engine_, prompter_),
      explorer_(state_, engine_, prompter_),
      recView_(state_, prompter_, progress_, lifecycle_, clock_),
      startUp_(state_, lifecycle_, profile_, prompter_, *this, {preferencesFile_, workDirectory_}) {
    state_.gVersion = kProgramVersion;
    if (auto* application = dynamic_cast<Application*>(qApp))
        application->OnFailure([this](const std::string& text) { ReportFailure(text); });
    ConnectCommands();
    RegisterForms();
    RegisterValidationForms();
    RegisterExportForms();
    RegisterStartUpForms();
    window_ = std::make_unique<RecViewWindow>(recView_, explorer_);
    desktop_.SetWindow(window_.get());
    progress_.SetWindow(window_.get());
    desktop_.SetFolder([this] {
        const std::string& path = state_.gDataSetPath.empty() ? state_.gPrefDataSet : state_.gDataSetPath;
        return path.empty() ? std::string() : FromQt(QFileInfo(ToQt(path)).absolutePath());
    });
    ConnectHelp();
}

DesktopProgram::~DesktopProgram() {
    CloseErrorLog();
    if (auto* application = dynamic_cast<Application*>(qApp)) application->OnFailure(nullptr);
}

// A failed job has not closed its progress.
void DesktopProgram::ReportFailure(const std::string& text) {
    progress_.EndTask();
    prompter_.WarningMessage(text);
}

void DesktopProgram::ConnectCommands() {
    recView_.RebuildExplorer.Connect([this] {
        explorer_.Init();
        if (explorer_.TreeV().TopCount() > 0) explorer_.HiliteNode(explorer_.TreeV().Top(0));
    });
    recView_.DataSetReopened.Connect([this] { explorer_.ListV().Reattach(state_.gDatabase); });
    recView_.ImportCommand = [this] { return Import(); };
    recView_.PreferencesCommand = [this] { prompter_.ShowModal("FrmPreferences"); };
    recView_.StopCommand = [this] {
        startUp_.RememberDataSet();
        return startup::StopProgram(state_, lifecycle_, prompter_, *quiet_);
    };
    recView_.ValidateCommand = [this] { ShowJob("frmValidate"); };
    recView_.ExportCommand = [this] { ShowJob("FrmNExport"); };
    recView_.AuthorEditCommand = [this] { prompter_.ShowModal("CleanUp"); };
}

void DesktopProgram::ConnectHelp() {
    help_ = std::make_unique<Help>(*window_,
                                   [this] { return ToQt(recView_.Controls().TabStrip1.SelectedKey()); });
    recView_.HelpContentsCommand = [this] { help_->ShowContents(); };
    recView_.HelpSearchCommand = [this] { help_->ShowSearch(); };
}

void DesktopProgram::RegisterForms() {
    desktop_.Register("FrmAbout", [this](QWidget* parent) {
        startup::FrmAbout form(state_.gVersion);
        AboutWindow(form, parent).exec();
    });
    desktop_.Register("CleanUp", [this](QWidget* parent) {
        curation::CleanUp form(state_, engine_, prompter_);
        form.TURecsModified.Connect([this](const std::vector<int>& taxa) { recView_.TaxaModified(taxa); });
        form.Changed.Connect([this] { recView_.ShowModified(); });
        form.HelpCommand = recView_.HelpContentsCommand;
        CleanUpWindow(form, parent).exec();
    });
    desktop_.Register("FrmImport", [this](QWidget* parent) {
        importing::FrmImport form(state_, engine_, prompter_, pump_, workDirectory_);
        ImportWindow(form, parent).exec();
    });
    desktop_.Register("FrmIError", [this](QWidget* parent) {
        importing::FrmIError form(state_, prompter_, workDirectory_);
        ImportErrorWindow(form, parent).exec();
    });
}

void DesktopProgram::RegisterStartUpForms() {
    desktop_.Register("FrmKingdom", [this](QWidget* parent) {
        startup::FrmKingdom form(state_, prompter_);
        KingdomWindow(form, parent).exec();
    });
    desktop_.Register("frmNoDB", [this](QWidget* parent) {
        startup::FrmNoDB form(state_, lifecycle_, prompter_);
        NoDbWindow(form, parent).exec();
    });
    desktop_.Register("FrmPreferences", [this](QWidget* parent) {
        startup::FrmPreferences form(state_, profile_, prompter_, preferencesFile_);
        form.HelpContentsCommand = recView_.HelpContentsCommand;
        form.HelpSearchCommand = recView_.HelpSearchCommand;
        PreferencesWindow(form, parent).exec();
    });
}

void DesktopProgram::RegisterValidationForms() {
    desktop_.Register("frmValidate", [this](QWidget* parent) {
        validation::frmValidate form(state_, engine_, prompter_, pump_, clock_, workDirectory_, findings_);
        form.ReplacingLog = [this] { CloseErrorLog(); };
        ValidateWindow(form, parent).exec();
    });
    desktop_.Register("FrmVError", [this](QWidget*) { ShowErrorLog(); });
}

void DesktopProgram::RegisterExportForms() {
    desktop_.Register("FrmNExport", [this](QWidget* parent) {
        exporting::FrmNExport form(state_, engine_, prompter_, pump_, clock_, workDirectory_, findings_);
        form.ReplacingLog = [this] { CloseErrorLog(); };
        ExportWindow(form, parent).exec();
    });
    desktop_.Register("FrmDExport", [this](QWidget* parent) {
        exporting::FrmDExport form(state_, engine_, prompter_, pump_, clock_, workDirectory_);
        PlainExportWindow window(form, parent);
        if (form.AskFile()) window.exec();
    });
    desktop_.Register("ExpType", [this](QWidget* parent) {
        exporting::ExpType form(exportType_, prompter_);
        ExportTypeWindow(form, parent).exec();
    });
    desktop_.Register("FrmTExport", [this](QWidget* parent) {
        exporting::FrmTExport form(state_, engine_, prompter_, pump_, clock_, exportType_);
        PlainExportWindow window(form, parent);
        if (form.AskFile()) window.exec();
    });
}

// Repaints the windows meanwhile.
void DesktopProgram::LoadWholeList() {
    const WaitCursor waiting(prompter_);
    explorer_.ListV().LoadAll(*quiet_);
}

// Stops reading the list while a job reads at full speed or writes.
void DesktopProgram::ShowJob(std::string_view formName) {
    LoadWholeList();
    prompter_.ShowModal(formName);
}

// Deletes the form and its window after the window has closed and its events are processed.
void DesktopProgram::ShowErrorLog() {
    errorWindow_.reset();
    errorLog_ = std::make_unique<validation::FrmVError>(
        state_, prompter_, *quiet_, workDirectory_, findings_,
        [this](int qb_id, std::string_view tab) { GoToTaxon(qb_id, tab); });
    errorWindow_ = std::make_unique<ValidationErrorWindow>(*errorLog_, window_.get());
    Connect(errorWindow_.get(), &QDialog::finished, window_.get(), [this] {
        Later(window_.get(), [this] {
            if (errorWindow_ == nullptr || errorWindow_->isVisible()) return;
            errorWindow_.reset();
            errorLog_.reset();
        });
    });
    errorWindow_->ShowBeside(*window_);
}

void DesktopProgram::CloseErrorLog() {
    if (errorWindow_ == nullptr || !errorWindow_->isVisible()) return;
    errorLog_->Exit();
    window_->statusBar()->showMessage(QObject::tr("The log of the last validation was closed."), kNoteLasts);
}

// When the taxon no longer exists, the current record stays, behind the log.
void DesktopProgram::GoToTaxon(int qb_id, std::string_view tab) {
    if (!explorer_.ListDblClick(qb_id))
        return prompter_.Message("The taxon of this record is not in the explorer.");
    if (state_.currentTaxon.qb_id != qb_id) return;  // the user stays on an unsaved record
    TabStripControl& tabs = recView_.Controls().TabStrip1;
    tabs.UserSelect(tabs.IndexOf(tab));
}

// Stops reading the list while the import writes. A failed import may have replaced the handle of the
// DataSet. An unsaved record is discarded only after the import has run; a canceled import leaves it.
editor::ImportEnd DesktopProgram::Import() {
    LoadWholeList();
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

bool DesktopProgram::Start() {
    startUp_.Run();
    return !state_.gQuitRequested;
}

void DesktopProgram::OpenPreferredDataSet() {
    startUp_.InitDB();
    if (!state_.gQuitRequested) recView_.ShowDataSet();
}

void DesktopProgram::EndOnSignals() {
    signals_ = std::make_unique<QuitSignals>([this] {
        state_.gBatchCancel = true;
        state_.gQuitRequested = true;  // stops the start
        QCoreApplication::exit(kFailed);
    });
    lifecycle_.GoOn = [this] { return !signals_->IsWaiting(); };
}

void DesktopProgram::ShowSplash() {
    splash_ = std::make_unique<startup::FrmSplash>(state_.gVersion);
    splashWindow_ = std::make_unique<SplashWindow>(*splash_);
    splashWindow_->ShowNow();
}

void DesktopProgram::CloseSplash() {
    splashWindow_.reset();
    splash_.reset();
}

}  // namespace quillon::ui
