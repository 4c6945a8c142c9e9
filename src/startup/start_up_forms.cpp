#include "startup/start_up_forms.h"

#include <fmt/format.h>

#include "core/vocabulary.h"
#include "dataset/file_names.h"

namespace quillon::startup {

namespace {

constexpr std::string_view kOpenTitle = "Open Taxonomic DataSet";

}  // namespace

FrmSplash::FrmSplash(const std::string& version) {
    form.SetTitle("Taxonomic Quillon");
    lblVersion.SetCaption("version " + version.substr(0, version.rfind('.')) + " (SR6)");
}

FrmKingdom::FrmKingdom(ApplicationState& state, Prompter& prompter) : state_(state), prompter_(prompter) {
    form.SetTitle("Default Kingdom");
    for (const std::string_view name : kKingdomNames) cboKingdom.AddItem(name);
    cmdOK.OnClick([this] { Accept(); });
    form.OnUserClose([this] { Leave(); });
}

void FrmKingdom::Accept() {
    if (cboKingdom.Text().empty()) return prompter_.WarningMessage("A Kingdom must be entered");
    state_.gKingdomName = cboKingdom.Text();
    form.Close();
}

void FrmKingdom::Leave() {
    state_.gQuitRequested = true;
    form.Close();
}

FrmNoDB::FrmNoDB(ApplicationState& state, dataset::Lifecycle& lifecycle, Prompter& prompter)
    : state_(state), lifecycle_(lifecycle), prompter_(prompter) {
    form.SetTitle("Taxonomic Quillon");
    Instructions.SetCaption(
        fmt::format("A DataSet {} could not be found or is incompatible.  Do you wish to Open an existing "
                    "DataSet, or create a New one?",
                    state_.gPrefDataSet));
    lblReason.SetCaption(lifecycle_.LastOpenError());
    lblReason.SetVisible(!lifecycle_.LastOpenError().empty());
    cmdOpen.OnClick([this] { Open(); });
    cmdNew.OnClick([this] { New(); });
    cmdExit.OnClick([this] { Exit(); });
    prompter_.WaitCursor(false);
}

void FrmNoDB::Open() {
    const auto chosen = prompter_.FileToOpen(kOpenTitle, dataset::kDataSetFilter);
    if (!chosen || chosen->empty()) return prompter_.WaitCursor(false);
    const std::string path = dataset::FindDataSetFile(*chosen);
    prompter_.WaitCursor(true);
    const bool opened = OpenFile(path);
    if (!opened) lifecycle_.CloseDataSet();
    prompter_.WaitCursor(false);
    if (opened) form.Close();
}

bool FrmNoDB::OpenFile(const std::string& path) {
    try {
        state_.gDataSetPath = lifecycle_.OpenDataSetFile(path);
        if (!state_.gDataSetPath.empty()) return !lifecycle_.RefuseVersion(path);
        prompter_.WarningMessage(lifecycle_.LastOpenError(), kOpenTitle);
    } catch (const store::StoreError& error) {
        prompter_.WarningMessage("Failed " + error.Description(), kOpenTitle);
    }
    return false;
}

void FrmNoDB::New() {
    lifecycle_.NewDataSet();
    if (state_.gDataSetOpen) form.Close();
}

void FrmNoDB::Exit() {
    state_.gQuitRequested = true;
    form.Close();
    prompter_.WaitCursor(true);
}

}  // namespace quillon::startup
