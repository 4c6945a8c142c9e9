#include "startup/start_up.h"

#include <exception>
#include <utility>

#include "core/version.h"
#include "startup/preferences.h"
#include "store/lifecycle/version.h"

namespace quillon::startup {

namespace {

// An error of one step does not keep the program from starting.
template <typename Step>
void Try(Step step) {
    try {
        step();
    } catch (const std::exception&) {
        return;
    }
}

bool HasValidVersion(store::Database& database, std::string& version) {
    try {
        return store::IsDataSetVersionValid(database, version);
    } catch (const store::StoreError&) {
        return false;
    }
}

}  // namespace

StartUp::StartUp(ApplicationState& state, dataset::Lifecycle& lifecycle, IniProfile& profile,
                 Prompter& prompter, Stage& stage, Places places)
    : state_(state),
      lifecycle_(lifecycle),
      profile_(profile),
      prompter_(prompter),
      stage_(stage),
      places_(std::move(places)) {}

void StartUp::Run() {
    state_.gVersion = kProgramVersion;
    prompter_.WaitCursor(true);
    Try([this] { stage_.ShowSplash(); });
    Try([this] { LoadMainForm(); });
    Try([this] { stage_.CloseSplash(); });
    prompter_.WaitCursor(false);
    if (!state_.gQuitRequested) stage_.ShowMainForm();
}

void StartUp::LoadMainForm() {
    state_.gPreferencesChanging = false;
    state_.gQuitRequested = false;
    state_.gOldKingdomName.clear();
    state_.gOldPrefRank.clear();
    if (!places_.dataFolder.empty()) EnterFolder(places_.dataFolder);
    Try([this] { ChooseKingdom(); });
    Try([this] { InitDB(); });
    if (state_.gQuitRequested) return;
    Try([this] { stage_.ShowDataSet(); });
    prompter_.WaitCursor(false);
    state_.RecordDirty = false;
    state_.gNewChangeTrackIds.clear();
}

void StartUp::ChooseKingdom() {
    const int keys = ReadPreferences(state_, profile_, places_.preferencesFile);
    if (keys > 0 && !state_.gKingdomName.empty()) return;
    prompter_.WaitCursor(false);
    prompter_.Message(keys == 0 ? "No Preference file exists, you must select a default Kingdom."
                                : "No Preference for Kingdom is set, you must select a default Kingdom.");
    prompter_.ShowModal("FrmKingdom");
    prompter_.WaitCursor(true);
    if (keys == 0) return;
    profile_.IniWriteValue(kPreferencesSection, places_.preferencesFile, kKingdomKey, state_.gKingdomName);
    profile_.IniFlush();
}

void StartUp::InitDB() {
    state_.gDatabase.reset();
    state_.gDataSetOpen = false;
    state_.RecordDirty = false;
    state_.gNewChangeTrackIds.clear();
    if (!state_.gPrefDataSet.empty()) state_.gDataSetPath = lifecycle_.OpenDataSetFile(state_.gPrefDataSet);
    if (state_.gPrefDataSet.empty() || state_.gDataSetPath.empty()) {
        prompter_.ShowModal("frmNoDB");
        return;
    }
    OpenPreferred();
}

// Here any other version gets the question, newer ones too, unlike where the user chooses a DataSet.
void StartUp::OpenPreferred() {
    const std::string path = state_.gDataSetPath;
    std::string version;
    if (!HasValidVersion(*state_.gDatabase, version)) {
        lifecycle_.ReportIncompatible(path);
        return Close();
    }
    if (version == state_.gVersion || lifecycle_.OfferUpdate(path)) return;
    Close();
    prompter_.ShowModal("frmNoDB");
}

void StartUp::Close() {
    Try([this] { lifecycle_.CloseDataSet(); });
}

bool StopProgram(ApplicationState& state, dataset::Lifecycle& lifecycle, Prompter& prompter,
                 EventPump& events) {
    if (!state.gDataSetOpen) return true;
    events.Yield();
    try {
        lifecycle.CloseDataSet();
    } catch (const store::StoreError& error) {
        prompter.Message("Failed " + error.Description());
        return false;
    }
    events.Yield();
    return true;
}

}  // namespace quillon::startup
