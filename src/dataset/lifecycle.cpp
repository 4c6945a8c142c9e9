#include "dataset/lifecycle.h"

#include <fmt/format.h>

#include "core/file_identity.h"
#include "core/version.h"
#include "dataset/file_names.h"
#include "dataset/kingdom_and_ranks.h"
#include "dataset/unsaved_record.h"
#include "store/lifecycle/create.h"
#include "store/lifecycle/file_copy.h"
#include "store/lifecycle/version.h"

namespace quillon::dataset {

using store::StoreError;

namespace {

constexpr std::string_view kOpenTitle = "Open Taxonomic DataSet File";
constexpr std::string_view kSaveAsTitle = "Save Taxonomic DataSet As";

// Shown in the message for a DataSet that is newer than the program.
constexpr std::string_view kDownloadPage = "https://example.org/quillon";

}  // namespace

std::string RefusalText(const std::string& path, store::VersionOrder order) {
    std::string text = fmt::format("Dataset {} is incompatible with this version of the QLN!", path);
    if (order == store::VersionOrder::Newer)
        text += fmt::format("\nDownload the current version of the QLN at:\n{}", kDownloadPage);
    return text;
}

Lifecycle::Lifecycle(ApplicationState& state, store::Engine& engine, Prompter& prompter)
    : state_(state), engine_(engine), prompter_(prompter) {
    if (state_.gVersion.empty()) state_.gVersion = kProgramVersion;
}

std::string TitleOf(std::string_view path, bool readOnly) {
    return "Taxonomic Quillon - " + std::string(path) + (readOnly ? " (read-only)" : "");
}

std::string Lifecycle::OpenDataSetFile(const std::string& path) {
    // `path` may refer to gDataSetPath, which CloseDataSet clears.
    std::string wanted(path);  // NOLINT(performance-unnecessary-copy-initialization)
    lastOpenError_.clear();
    try {
        CloseDataSet();
        state_.gDatabase = engine_.OpenDatabase(wanted);
        state_.gDataSetOpen = true;
        state_.title = TitleOf(wanted, state_.gDatabase->IsReadOnly());
        return wanted;
    } catch (const StoreError& error) {
        lastOpenError_ = error.Description();
        return "";
    }
}

void Lifecycle::CloseDataSet() {
    const store::DatabaseHandle database = std::move(state_.gDatabase);
    state_.gDatabase.reset();
    state_.gDataSetPath.clear();
    state_.gDataSetOpen = false;
    state_.gDataSetIsNew = false;
    state_.title = kTitleNoDataSet;
    if (database != nullptr) database->Close();
    engine_.FreeLocks();
}

bool Lifecycle::AskLoseChanges() {
    if (!MayLoseRecord()) return true;
    DiscardRecord();
    return false;
}

bool Lifecycle::MayLoseRecord() {
    return !state_.RecordDirty || AskToLoseRecord(prompter_);
}

void Lifecycle::DiscardRecord() {
    if (!state_.RecordDirty) return;
    if (state_.gDatabase != nullptr) RemoveChangeTracks(state_, engine_, prompter_);
    if (RecordDiscarded) RecordDiscarded();
}

// Reopens the previous DataSet and keeps gDataSetIsNew, which only an import clears.
void Lifecycle::GoBackTo(const std::string& path, bool wasNew) {
    try {
        CloseDataSet();
    } catch (const StoreError&) {
        // The caller reports the failure that led here.
    }
    if (path.empty()) return;
    state_.gDataSetPath = OpenDataSetFile(path);
    state_.gDataSetIsNew = wasNew && state_.gDataSetOpen;
}

// A new DataSet gets the preferred kingdom, even if the open one has another.
void Lifecycle::MakeDataSet(const std::string& path) {
    store::MakeDataSetFile(engine_, path, PreferredKingdom(state_), state_.gVersion, GoOn);
    OpenNewDataSet(path);
}

void Lifecycle::OpenNewDataSet(const std::string& path) {
    const std::string opened = OpenDataSetFile(path);
    if (opened.empty()) throw StoreError(store::ErrorNumber::CannotOpenFile, lastOpenError_);
    state_.gDataSetPath = opened;
    state_.gDataSetIsNew = true;
    state_.RecordDirty = false;
    state_.gNewChangeTrackIds.clear();
    TakePreferredKingdom(state_);
    CheckPreferenceRank(state_, prompter_);
}

bool Lifecycle::NewDataSet() {
    if (!MayLoseRecord()) return false;
    for (;;) {
        const auto path = AskNewDataSetFile(prompter_, "Open New Taxonomic DataSet");
        if (!path) return false;
        if (!state_.gDataSetOpen || !IsSameFile(*path, state_.gDataSetPath)) {
            DiscardRecord();
            return MakeInPlaceOfOpen(*path);
        }
        prompter_.WarningMessage("New DataSet cannot have same name as the current one!");
    }
}

bool Lifecycle::MakeInPlaceOfOpen(const std::string& path) {
    const std::string oldPath = state_.gDataSetPath;
    const bool wasNew = state_.gDataSetIsNew;
    prompter_.WaitCursor(true);
    try {
        store::RefuseSpecialFile(path);
        store::RefuseFileInUse(engine_, path);
        CloseDataSet();
        MakeDataSet(path);
        prompter_.WaitCursor(false);
        return true;
    } catch (const StoreError& error) {
        prompter_.WaitCursor(false);
        if (!IsCanceled()) prompter_.WarningMessage("Failed " + error.Description());
        if (!state_.gDataSetOpen || state_.gDataSetPath != oldPath) GoBackTo(oldPath, wasNew);
        return false;
    }
}

bool Lifecycle::OfferUpdate(const std::string& path) {
    if (!prompter_.AskYesNo(fmt::format("Dataset {} is incompatible with this version of the QLN.  "
                                        "Do you wish to update the Dataset?",
                                        path),
                            "Update Dataset"))
        return false;
    if (OrderOfOpen() == store::VersionOrder::Newer) {
        prompter_.WarningMessage(RefusalText(path, store::VersionOrder::Newer));
    } else {
        // Updates of older files do not exist yet, so a Yes ends like a failed update.
        prompter_.WarningMessage(fmt::format("Unable to update {}!", path));
    }
    return false;
}

bool Lifecycle::RefuseAtStart(const std::string& path) {
    if (OrderOfOpen() != store::VersionOrder::Unordered) return false;
    prompter_.WarningMessage(RefusalText(path, store::VersionOrder::Unordered));
    return true;
}

bool Lifecycle::RefuseVersion(const std::string& path) {
    const auto order = OrderOfOpen();
    if (order == store::VersionOrder::Same) return false;
    if (order == store::VersionOrder::Older) return !OfferUpdate(path);
    prompter_.WarningMessage(RefusalText(path, order));
    return true;
}

// A DataSet whose version cannot be read is Unordered, which is refused.
store::VersionOrder Lifecycle::OrderOfOpen() const {
    try {
        std::string version;
        if (store::IsDataSetVersionValid(*state_.gDatabase, version))
            return store::CompareDataSetVersion(version, state_.gVersion);
        return store::VersionOrder::Unordered;
    } catch (const StoreError&) {
        return store::VersionOrder::Unordered;
    }
}

bool Lifecycle::OpenDataSet() {
    if (!MayLoseRecord()) return false;
    const auto chosen = prompter_.FileToOpen(kOpenTitle, kDataSetFilter);
    if (!chosen || chosen->empty()) return false;
    DiscardRecord();
    prompter_.WaitCursor(true);
    const bool opened = OpenChosen(FindDataSetFile(*chosen));
    state_.RecordDirty = false;
    state_.gNewChangeTrackIds.clear();
    prompter_.WaitCursor(false);
    return opened;
}

bool Lifecycle::OpenChosen(const std::string& path) {
    const std::string oldPath = state_.gDataSetPath;
    const bool wasNew = state_.gDataSetIsNew;
    state_.gDataSetPath = OpenDataSetFile(path);
    bool opened = !state_.gDataSetPath.empty();
    if (opened) {
        opened = !RefuseVersion(path);
    } else {
        prompter_.WarningMessage(lastOpenError_, kOpenTitle);
    }
    if (!opened) {
        GoBackTo(oldPath, wasNew);
    } else if (IsSameFile(path, oldPath)) {
        state_.gDataSetIsNew = wasNew;
    }
    return opened;
}

void Lifecycle::SaveDataSetAs() {
    if (!state_.gDataSetOpen) {
        prompter_.Message("No DataSet is Open");
        return;
    }
    if (!MayLoseRecord()) return;
    const auto chosen = prompter_.FileToSave(kSaveAsTitle, kDataSetFilter, false);
    if (!chosen || chosen->empty()) return;
    const std::string path = WithExtension(*chosen);
    if (store::IsDataSetPlaceTaken(path) && !AskToOverwrite(prompter_, path)) return;
    DiscardRecord();
    CopyOpenTo(path);
}

// Copies the closed file and then opens the DataSet again.
void Lifecycle::CopyOpenTo(const std::string& path) {
    const std::string oldPath = state_.gDataSetPath;
    const bool wasNew = state_.gDataSetIsNew;
    prompter_.WaitCursor(true);
    std::string failure;
    try {
        store::RefuseSpecialFile(path);
        if (!IsSameFile(path, oldPath)) store::RefuseFileInUse(engine_, path);
        CloseDataSet();
        store::CopyDataSetFile(oldPath, path, GoOn);
    } catch (const StoreError& error) {
        failure = error.Description();
    }
    if (!state_.gDataSetOpen) GoBackTo(oldPath, wasNew);
    prompter_.WaitCursor(false);
    if (!failure.empty() && !IsCanceled()) prompter_.WarningMessage("Failed " + failure, kSaveAsTitle);
}

void Lifecycle::ReadKingdomAndRanks() {
    ReadKingdom(state_, prompter_);
    CheckPreferenceRank(state_, prompter_);
    ReadRankIds(state_);
}

}  // namespace quillon::dataset
