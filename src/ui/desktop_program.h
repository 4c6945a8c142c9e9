// The desktop program put together: state, store, outside, explorer, main form and main window, and the lines
// between them. main() makes one, opens the preferred DataSet, and shows it.
#pragma once

#include <memory>
#include <string>

#include "core/application_state.h"
#include "editor/rec_view.h"
#include "navigation/explorer.h"
#include "store/engine.h"
#include "store/lifecycle/lifecycle.h"
#include "ui/desktop_outside.h"
#include "ui/in_progress_window.h"
#include "ui/rec_view_window.h"

namespace quillon::ui {

class DesktopProgram {
public:
    // With `prompter` given questions go there instead of to the screen. `workDirectory` takes the logs; the
    // current directory when empty.
    explicit DesktopProgram(Prompter* prompter = nullptr, std::string workDirectory = {});

    // Opens the DataSet of the preferences, when it names one that opens and has a version, and shows it or
    // none.
    void OpenPreferredDataSet();

    ApplicationState& State() { return state_; }
    store::Engine& Engine() { return engine_; }
    store::Lifecycle& Lifecycle() { return lifecycle_; }
    editor::RecView& RecView() { return recView_; }
    navigation::cExplorer& Explorer() { return explorer_; }
    RecViewWindow& Window() { return *window_; }

private:
    void Connect();
    void RegisterForms();
    editor::ImportEnd Import();

    ApplicationState state_;
    store::Engine engine_;
    DesktopPrompter desktop_;
    Prompter& prompter_;
    DesktopPump pump_;
    InProgressWindow progress_;
    std::string workDirectory_;
    store::Lifecycle lifecycle_;
    navigation::cExplorer explorer_;
    editor::RecView recView_;
    std::unique_ptr<RecViewWindow> window_;
};

}  // namespace quillon::ui
