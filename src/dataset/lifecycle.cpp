#include "dataset/lifecycle.h"

#include <fmt/format.h>

#include <optional>

#include "core/file_identity.h"
#include "core/text.h"
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

std::string IncompatibleText(const std::string& path) {
    return fmt::format("Dataset {} is incompatible with this version of the QLN!", path);
}

}  // namespace

Lifecycle::Lifecycle(ApplicationState& state, store::Engine& engine, Prompter& prompter)
    : state_(state), engine_(engine), prompter_(prompter) {
    if (state_.gVersion.empty()) state_.gVersion = kProgramVersion;
}

std::string Lifecycle::OpenDataSetFile(const std::string& path) {
    // A caller may hand in gDataSetPath itself, which the closing clears.
    std::string wanted(path);  // NOLINT(performance-unnecessary-copy-initialization)
    lastOpenError_.clear();
    try {
        CloseDataSet();
        state_.gDatabase = engine_.OpenDatabase(wanted);
        state_.gDataSetOpen = true;
        state_.title = "Taxonomic Quillon - " + wanted;
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
    if (!state_.RecordDirty) return false;
    if (!AskToLoseRecord(prompter_)) return true;
    if (state_.gDatabase != nullptr) RemoveChangeTracks(state_, engine_, prompter_);
    if (RecordDiscarded) RecordDiscarded();
    return false;
}

// The DataSet of before is the open one again, and new if it was: only an import ends that.
void Lifecycle::GoBackTo(const std::string& path, bool wasNew) {
    try {
        CloseDataSet();
    } catch (const StoreError&) {
        // The failure that led here is the one to report.
    }
    if (path.empty()) return;
    state_.gDataSetPath = OpenDataSetFile(path);
    state_.gDataSetIsNew = wasNew && state_.gDataSetOpen;
}

void Lifecycle::MakeDataSet(const std::string& path) {
    store::MakeDataSetFile(engine_, path, state_.gKingdomName, state_.gVersion);
    OpenNewDataSet(path);
}

void Lifecycle::OpenNewDataSet(const std::string& path) {
    const std::string opened = OpenDataSetFile(path);
    if (opened.empty()) throw StoreError(store::ErrorNumber::CannotOpenFile, lastOpenError_);
    state_.gDataSetPath = opened;
    state_.gDataSetIsNew = true;
    state_.RecordDirty = false;
    state_.gNewChangeTrackIds.clear();
    const auto kingdom = state_.gDatabase->CreateSnapshot(fmt::format(
        "SELECT kingdom_id FROM kingdoms WHERE kingdom_name = '{}';", QuoteSQL(state_.gKingdomName)));
    if (!kingdom->Eof()) state_.gKingdomId = static_cast<int>(kingdom->Get("kingdom_id").AsLong());
    CheckPreferenceRank(state_, prompter_);
}

bool Lifecycle::NewDataSet() {
    if (AskLoseChanges()) return false;
    for (;;) {
        const auto chosen = prompter_.FileToSave("Open New Taxonomic DataSet", kDataSetFilter, true);
        if (!chosen || chosen->empty()) return false;
        const std::string path = WithExtension(*chosen);
        if (!FileExists(path) || !state_.gDataSetOpen || !IsSameFile(path, state_.gDataSetPath))
            return MakeInPlaceOfOpen(path);
        prompter_.Message("New DataSet cannot have same name as the current one!");
    }
}

bool Lifecycle::MakeInPlaceOfOpen(const std::string& path) {
    const std::string oldPath = state_.gDataSetPath;
    const bool wasNew = state_.gDataSetIsNew;
    prompter_.WaitCursor(true);
    try {
        store::RefuseFileInUse(engine_, path);
        CloseDataSet();
        MakeDataSet(path);
        prompter_.WaitCursor(false);
        return true;
    } catch (const StoreError& error) {
        prompter_.WaitCursor(false);
        prompter_.Message("Failed " + error.Description());
        if (!state_.gDataSetOpen || state_.gDataSetPath != oldPath) GoBackTo(oldPath, wasNew);
        return false;
    }
}

void Lifecycle::ReportIncompatible(const std::string& path) {
    prompter_.Message(IncompatibleText(path));
}

bool Lifecycle::OfferUpdate(const std::string& path) {
    const bool update = prompter_.AskYesNo(fmt::format("Dataset {} is incompatible with this version of "
                                                       "the QLN.  Do you wish to update the Dataset?",
                                                       path),
                                           "Update Dataset");
    // Nothing here brings an older file up to date yet, so the answer Yes ends like a failed update.
    if (update) prompter_.Message(fmt::format("Unable to update {}!", path));
    return false;
}

bool Lifecycle::RefuseVersion(const std::string& path) {
    std::string version;
    const auto order = store::IsDataSetVersionValid(*state_.gDatabase, version)
                           ? store::CompareDataSetVersion(version, state_.gVersion)
                           : store::VersionOrder::Unordered;
    switch (order) {
        case store::VersionOrder::Same:
            return false;
        case store::VersionOrder::Older:
            return !OfferUpdate(path);
        case store::VersionOrder::Newer:
            prompter_.Message(IncompatibleText(path) + "\nDownload the current version of the QLN at:\n" +
                              state_.gDownloadPage);
            return true;
        case store::VersionOrder::Unordered:
            break;
    }
    ReportIncompatible(path);
    return true;
}

bool Lifecycle::OpenDataSet() {
    if (AskLoseChanges()) return false;
    const auto chosen = prompter_.FileToOpen("Open Taxonomic DataSet File", kDataSetFilter);
    if (!chosen || chosen->empty()) return false;
    prompter_.WaitCursor(true);
    const bool opened = OpenChosen(*chosen);
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
        prompter_.Message(lastOpenError_, "Open Taxonomic DataSet File");
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
    if (AskLoseChanges()) return;
    const auto chosen = prompter_.FileToSave("Save Taxonomic DataSet As", kDataSetFilter, false);
    if (!chosen || chosen->empty()) return;
    const std::string path = WithExtension(*chosen);
    if (FileExists(path) && !prompter_.AskYesNo(fmt::format("DataSet '{}' already exists.  Overwrite?", path),
                                                "Duplicate DataSet Name"))
        return;
    const std::string oldPath = state_.gDataSetPath;
    const bool wasNew = state_.gDataSetIsNew;
    prompter_.WaitCursor(true);
    std::string failure;
    try {
        if (!IsSameFile(path, oldPath)) store::RefuseFileInUse(engine_, path);
        CloseDataSet();
        store::CopyDataSetFile(oldPath, path);
    } catch (const StoreError& error) {
        failure = error.Description();
    }
    // The copy is made from a closed file; the DataSet of before is the open one again.
    if (!state_.gDataSetOpen) GoBackTo(oldPath, wasNew);
    prompter_.WaitCursor(false);
    if (!failure.empty()) prompter_.Message("Failed " + failure, "Save Taxonomic DataSet As");
}

void Lifecycle::ReadKingdomAndRanks() {
    ReadKingdom(state_, prompter_);
    CheckPreferenceRank(state_, prompter_);
    ReadRankIds(state_);
}

}  // namespace quillon::dataset
