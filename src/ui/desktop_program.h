// The whole desktop program: state, store, outside, explorer, main form and main window. main() makes one and
// starts it; tests make one with scripted answers.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "core/application_state.h"
#include "core/ini_profile.h"
#include "core/system_clock.h"
#include "dataset/lifecycle.h"
#include "editor/rec_view.h"
#include "export/name_list.h"
#include "navigation/explorer.h"
#include "startup/start_up.h"
#include "store/engine.h"
#include "ui/desktop_outside.h"
#include "ui/help.h"
#include "ui/in_progress_window.h"
#include "ui/quit_signals.h"
#include "ui/rec_view_window.h"
#include "ui/splash_window.h"
#include "ui/validation_error_window.h"
#include "validation/validate_data_set.h"

namespace quillon::ui {

class DesktopProgram : private startup::Stage {
public:
    // `prompter` answers the questions instead of the user. `workDirectory` holds the logs and becomes the
    // current directory at the start; empty means the current one. `preferencesFile` is Qln.Ini.
    explicit DesktopProgram(Prompter* prompter = nullptr, std::string workDirectory = {},
                            std::string preferencesFile = {});
    // Closes the validation's log, which removes it.
    ~DesktopProgram() override;

    // The whole start, up to a main window on the screen. False when the user chose to leave instead.
    bool Start();
    // Opens and shows the DataSet of gPrefDataSet. Asks what to do when that fails, which may leave none
    // open.
    void OpenPreferredDataSet();

    // Makes SIGHUP, SIGINT and SIGTERM cancel a running job and end the event loop with status 3.
    void EndOnSignals();

    ApplicationState& State() { return state_; }
    store::Engine& Engine() { return engine_; }
    dataset::Lifecycle& Lifecycle() { return lifecycle_; }
    editor::RecView& RecView() { return recView_; }
    navigation::cExplorer& Explorer() { return explorer_; }
    RecViewWindow& Window() { return *window_; }
    DesktopPrompter& Outside() { return desktop_; }

private:
    void ConnectCommands();
    void ConnectHelp();
    void ReportFailure(const std::string& text);
    void RegisterForms();
    void RegisterStartUpForms();
    void RegisterValidationForms();
    void RegisterExportForms();
    editor::ImportEnd Import();
    void LoadWholeList();
    void ShowJob(std::string_view formName);
    void GoToTaxon(int qb_id, std::string_view tab);
    void ShowErrorLog();
    void CloseErrorLog();

    void ShowSplash() override;
    void CloseSplash() override;
    void ShowDataSet() override { recView_.ShowDataSet(); }
    void ShowMainForm() override { window_->show(); }

    ApplicationState state_;
    store::Engine engine_;
    DesktopPrompter desktop_;
    Prompter& prompter_;
    DesktopPump pump_;
    SystemClock clock_;
    validation::FindingMarks findings_;                           // of the last validation
    exporting::ListType exportType_ = exporting::ListType::Name;  // chosen in ExpType
    InProgress progress_;
    const std::unique_ptr<EventPump> quiet_;  // ignores user input
    std::string workDirectory_;
    std::string preferencesFile_;
    IniProfile profile_;
    dataset::Lifecycle lifecycle_;
    navigation::cExplorer explorer_;
    editor::RecView recView_;
    startup::StartUp startUp_;
    std::unique_ptr<startup::FrmSplash> splash_;
    std::unique_ptr<SplashWindow> splashWindow_;
    std::unique_ptr<RecViewWindow> window_;
    std::unique_ptr<Help> help_;
    std::unique_ptr<QuitSignals> signals_;
    std::unique_ptr<validation::FrmVError> errorLog_;  // not modal
    std::unique_ptr<ValidationErrorWindow> errorWindow_;
};

}  // namespace quillon::ui
