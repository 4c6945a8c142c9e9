#include "ui/desktop_program.h"

#include "ui/about_window.h"
#include "ui/import_window.h"

namespace quillon::ui {

DesktopProgram::DesktopProgram(Prompter* prompter, std::string workDirectory)
    : prompter_(prompter != nullptr ? *prompter : desktop_),
      workDirectory_(std::move(workDirectory)),
      lifecycle_(state_, engine_, prompter_),
      explorer_(state_, engine_, prompter_),
      recView_(state_, prompter_, progress_, lifecycle_) {
    state_.gVersion = store::kProgramVersion;
    Connect();
    RegisterForms();
    window_ = std::make_unique<RecViewWindow>(recView_, explorer_);
    desktop_.SetWindow(window_.get());
}

void DesktopProgram::Connect() {
    recView_.RebuildExplorer = [this] {
        explorer_.Init();
        if (explorer_.TreeV().TopCount() > 0) explorer_.HiliteNode(explorer_.TreeV().Top(0));
    };
    recView_.DataSetReopened = [this] { explorer_.ListV().Reattach(state_.gDatabase); };
    recView_.ImportCommand = [this] { return Import(); };
}

void DesktopProgram::RegisterForms() {
    desktop_.Register("FrmAbout", [this](QWidget* parent) {
        editor::FrmAbout form(state_.gVersion);
        AboutWindow(form, parent).exec();
    });
    desktop_.Register("FrmImport", [this](QWidget* parent) {
        importing::FrmImport form(state_, engine_, prompter_, pump_, workDirectory_);
        ImportWindow(form, parent).exec();
    });
    desktop_.Register("FrmIError", [this](QWidget* parent) {
        importing::FrmIError form(prompter_, workDirectory_);
        ImportErrorWindow(form, parent).exec();
    });
}

// The list must not be reading while the import writes.
editor::ImportEnd DesktopProgram::Import() {
    explorer_.ListV().LoadAll();
    switch (importing::ImportCommand(state_, prompter_)) {
        case importing::ImportOutcome::Canceled:
            return editor::ImportEnd::Canceled;
        case importing::ImportOutcome::Done:
            return editor::ImportEnd::Done;
        case importing::ImportOutcome::NotStarted:
            break;
    }
    return editor::ImportEnd::NotStarted;
}

void DesktopProgram::OpenPreferredDataSet() {
    std::string version;
    if (!state_.gPrefDataSet.empty()) state_.gDataSetPath = lifecycle_.OpenDataSetFile(state_.gPrefDataSet);
    if (state_.gDataSetOpen && !lifecycle_.IsDataSetVersionValid(version)) {
        prompter_.Message("Dataset " + state_.gPrefDataSet +
                          " is incompatible with this version of the QLN!");
        lifecycle_.CloseDataSet();
    }
    recView_.ShowDataSet();
}

}  // namespace quillon::ui
