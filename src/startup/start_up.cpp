#include "startup/start_up.h"

#include <fmt/format.h>

#include <exception>
#include <utility>

#include "core/file_replace.h"
#include "core/version.h"
#include "startup/preferences.h"
#include "store/lifecycle/version.h"

namespace quillon::startup {

namespace {

// A failed step does not prevent the start.
template <typename Step>
void Try(Step step) {
    try {
        step();
    } catch (const std::exception&) {
        return;
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
    if (state_.gQuitRequested) return;
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
    prompter_.Message(ReasonToAsk(keys));
    prompter_.ShowModal("FrmKingdom");
    prompter_.WaitCursor(true);
    if (keys == 0 || state_.gQuitRequested) return;
    profile_.IniWriteValue(kPreferencesSection, places_.preferencesFile, kKingdomKey, state_.gKingdomName);
    profile_.IniFlush();
}

std::string StartUp::ReasonToAsk(int keys) const {
    if (keys > 0) return "No Preference for Kingdom is set, you must select a default Kingdom.";
    const std::string failure = ReadSmallFile(places_.preferencesFile).failure;
    if (failure.empty()) return "No Preference file exists, you must select a default Kingdom.";
    return fmt::format("The Preference file {} cannot be read: {}.  You must select a default Kingdom.",
                       places_.preferencesFile, failure);
}

void StartUp::InitDB() {
    state_.gDatabase.reset();
    state_.gDataSetOpen = false;
    state_.RecordDirty = false;
    state_.gNewChangeTrackIds.clear();
    const std::string path =
        state_.gPrefDataSet.empty() ? LastDataSet(places_.preferencesFile) : state_.gPrefDataSet;
    if (!path.empty()) state_.gDataSetPath = lifecycle_.OpenDataSetFile(path);
    if (state_.gDataSetPath.empty()) {
        prompter_.ShowModal("frmNoDB");
        return;
    }
    OpenPreferred();
}

// Asks for any other version, also a newer one, unlike File, Open.
void StartUp::OpenPreferred() {
    const std::string path = state_.gDataSetPath;
    if (lifecycle_.RefuseAtStart(path)) return Close();
    std::string version;
    store::IsDataSetVersionValid(*state_.gDatabase, version);
    if (version == state_.gVersion || lifecycle_.OfferUpdate(path)) return;
    Close();
    prompter_.ShowModal("frmNoDB");
}

void StartUp::Close() {
    Try([this] { lifecycle_.CloseDataSet(); });
}

void StartUp::RememberDataSet() const {
    if (state_.gDataSetOpen) WriteLastDataSet(places_.preferencesFile, state_.gDataSetPath);
}

bool StopProgram(ApplicationState& state, dataset::Lifecycle& lifecycle, Prompter& prompter,
                 EventPump& events) {
    if (!state.gDataSetOpen) return true;
    events.Yield();
    try {
        lifecycle.CloseDataSet();
    } catch (const store::StoreError& error) {
        prompter.WarningMessage("Failed " + error.Description());
        return false;
    }
    events.Yield();
    return true;
}

}  // namespace quillon::startup
