#include "store/lifecycle/lifecycle.h"

#include <fmt/format.h>
#include <sys/stat.h>

#include "core/text.h"
#include "store/lifecycle/file_copy.h"

namespace quillon::store {

namespace {

constexpr std::string_view kLosingTitle = "Losing new/modified record";
constexpr std::string_view kLosingText =
    "A new or modified record was not saved.  Continuing will lose that record!  Continue?";
constexpr std::string_view kUpdateTitle = "Update Dataset";

bool FileExists(const std::string& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0;
}

bool IsSameFile(const std::string& left, const std::string& right) {
    struct stat a {
    }, b{};
    if (stat(left.c_str(), &a) != 0 || stat(right.c_str(), &b) != 0) return left == right;
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

std::string IncompatibleText(const std::string& path) {
    return fmt::format("Dataset {} is incompatible with this version of the QLN!", path);
}

// The test looks at the whole path, its folders included.
std::string WithExtension(std::string path) {
    if (path.find('.') == std::string::npos) path += ".MDB";
    return path;
}

}  // namespace

Lifecycle::Lifecycle(ApplicationState& state, Engine& engine, Prompter& prompter)
    : state_(state), engine_(engine), prompter_(prompter) {
    if (state_.gVersion.empty()) state_.gVersion = kProgramVersion;
}

bool Lifecycle::HasValidVersion(Database& database, std::string& version) {
    version.clear();
    for (const TableDef& table : database.TableDefs()) {
        if (table.name != "db_control") continue;
        const auto rows = database.CreateSnapshot("SELECT * FROM db_control");
        for (; !rows->Eof() && version.empty(); rows->MoveNext())
            if (EqualText(rows->Get("attribute").AsText(), "Version")) version = rows->Get("value").AsText();
        if (!version.empty()) break;
    }
    if (version.empty()) return false;
    return (version[0] >= '0' && version[0] <= '9') || version.substr(0, 5) == "Gamma";
}

bool Lifecycle::IsDataSetVersionValid(std::string& version) {
    version.clear();
    return state_.gDatabase != nullptr && HasValidVersion(*state_.gDatabase, version);
}

bool Lifecycle::IsFileDataSetVersionValid(const std::string& path, std::string& version) {
    version.clear();
    try {
        const DatabaseHandle database = engine_.OpenDatabase(path);
        const bool valid = HasValidVersion(*database, version);
        database->Close();
        return valid;
    } catch (const StoreError&) {
        return false;
    }
}

// The order of the tests is part of the design: the fifth never fires.
std::string Lifecycle::CompareDataSetVersion(std::string_view version) const {
    const std::string_view program = state_.gVersion;
    if (version == program) return "EQ";
    if (version == "1.3" || version == "1.31") return "EQ";
    if (program == "3.1" && version == "3") return "EQ";
    if (version >= "4.0.1") return "LT";
    if (version >= "4.0.2") return "EQ";
    if (version >= "3.6.0") return "LT";
    if (version > program) return "GT";
    if (version < program) return "LT";
    return "UN";
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
    const DatabaseHandle database = std::move(state_.gDatabase);
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
    if (!prompter_.AskYesNo(kLosingText, kLosingTitle)) return true;
    if (state_.gDatabase != nullptr) DiscardUnsavedRecord();
    if (RecordDiscarded) RecordDiscarded();
    return false;
}

// The DataSet of before is the open one again, and new if it was: only an import ends that.
void Lifecycle::GoBackTo(const std::string& path, bool wasNew) {
    try {
        CloseDataSet();
    } catch (const StoreError&) {
        // The failure that led here is the one to tell.
    }
    if (path.empty()) return;
    state_.gDataSetPath = OpenDataSetFile(path);
    state_.gDataSetIsNew = wasNew && state_.gDataSetOpen;
}

void Lifecycle::CheckPreferenceRank() {
    const auto rank = state_.gDatabase->CreateSnapshot(
        fmt::format("SELECT rank_id FROM taxonomic_unit_types WHERE rank_name = '{}' AND kingdom_id = {};",
                    QuoteSQL(state_.gPrefRank), state_.gKingdomId));
    if (rank->RecordCount() > 0) return;
    prompter_.Message(
        fmt::format("The 'Preference' rank is not valid for the {} dataset!  Defaulting to 'Kingdom'.",
                    state_.gDataSetPath));
    state_.gOldPrefRank = state_.gPrefRank;
    state_.gPrefRank = "Kingdom";
}

void Lifecycle::MakeSeededFile(const std::string& path) {
    CreateDataSetFile(path);
    const DatabaseHandle database = engine_.OpenDatabase(path);
    Seed(*database);
    database->Close();
}

// The file is complete before it takes the place of another, so that a failure leaves the other as it was.
void Lifecycle::MakeDataSet(const std::string& path) {
    const std::string target = RealPath(path);
    const std::string making = target + "~new";
    RemoveDataSetFile(making);
    try {
        MakeSeededFile(making);
        Publish(making, target);
    } catch (...) {
        RemoveDataSetFile(making);
        throw;
    }
    const std::string opened = OpenDataSetFile(path);
    if (opened.empty()) throw StoreError(ErrorNumber::CannotOpenFile, lastOpenError_);
    state_.gDataSetPath = opened;
    state_.gDataSetIsNew = true;
    state_.gDataSetOpen = true;
    state_.RecordDirty = false;
    state_.gNewChangeTrackIds.clear();
    const auto kingdom = state_.gDatabase->CreateSnapshot(fmt::format(
        "SELECT kingdom_id FROM kingdoms WHERE kingdom_name = '{}';", QuoteSQL(state_.gKingdomName)));
    if (!kingdom->Eof()) state_.gKingdomId = static_cast<int>(kingdom->Get("kingdom_id").AsLong());
    CheckPreferenceRank();
}

bool Lifecycle::NewDataSet() {
    if (AskLoseChanges()) return false;
    for (;;) {
        const auto chosen = prompter_.FileToSave("Open New Taxonomic DataSet", kDataSetFilter, true);
        if (!chosen || chosen->empty()) return false;
        const std::string path = WithExtension(*chosen);
        if (FileExists(path) && state_.gDataSetOpen && IsSameFile(path, state_.gDataSetPath)) {
            prompter_.Message("New DataSet cannot have same name as the current one!");
            continue;
        }
        const std::string oldPath = state_.gDataSetPath;
        const bool wasNew = state_.gDataSetIsNew;
        prompter_.WaitCursor(true);
        try {
            RefuseFileInUse(engine_, path);
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
}

void Lifecycle::TellIncompatible(const std::string& path) {
    prompter_.Message(IncompatibleText(path));
}

bool Lifecycle::OfferUpdate(const std::string& path) {
    const bool update = prompter_.AskYesNo(fmt::format("Dataset {} is incompatible with this version of "
                                                       "the QLN.  Do you wish to update the Dataset?",
                                                       path),
                                           kUpdateTitle);
    // Nothing here brings an older file up to date yet, so the answer Yes ends like a failed update.
    if (update) prompter_.Message(fmt::format("Unable to update {}!", path));
    return false;
}

bool Lifecycle::RefuseVersion(const std::string& path) {
    std::string version;
    const std::string order = IsDataSetVersionValid(version) ? CompareDataSetVersion(version) : "";
    if (order == "EQ") return false;
    if (order == "LT") return !OfferUpdate(path);
    if (order == "GT") {
        prompter_.Message(IncompatibleText(path) + "\nDownload the current version of the QLN at:\n" +
                          state_.gDownloadPage);
    } else {
        TellIncompatible(path);
    }
    return true;
}

bool Lifecycle::OpenDataSet() {
    if (AskLoseChanges()) return false;
    const std::string oldPath = state_.gDataSetPath;
    const bool wasNew = state_.gDataSetIsNew;
    const auto chosen = prompter_.FileToOpen("Open Taxonomic DataSet File", kDataSetFilter);
    if (!chosen || chosen->empty()) return false;
    prompter_.WaitCursor(true);
    state_.gDataSetPath = OpenDataSetFile(*chosen);
    const std::string failure = lastOpenError_;
    bool opened = !state_.gDataSetPath.empty();
    if (!opened) {
        prompter_.Message(failure, "Open Taxonomic DataSet File");
    } else {
        opened = !RefuseVersion(*chosen);
    }
    if (!opened) {
        GoBackTo(oldPath, wasNew);
    } else if (IsSameFile(*chosen, oldPath)) {
        state_.gDataSetIsNew = wasNew;
    }
    state_.RecordDirty = false;
    state_.gNewChangeTrackIds.clear();
    prompter_.WaitCursor(false);
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
        if (!IsSameFile(path, oldPath)) RefuseFileInUse(engine_, path);
        CloseDataSet();
        CopyDataSetFile(oldPath, path);
    } catch (const StoreError& error) {
        failure = error.Description();
    }
    // The copy is made from a closed file; the DataSet of before is the open one again.
    if (!state_.gDataSetOpen) GoBackTo(oldPath, wasNew);
    prompter_.WaitCursor(false);
    if (!failure.empty()) prompter_.Message("Failed " + failure, "Save Taxonomic DataSet As");
}

void Lifecycle::ReadKingdomAndRanks() {
    Database& database = *state_.gDatabase;
    auto index = database.OpenQueryDef("Get Kingdom Index");
    const auto kingdom = index.Set("kingdom", state_.gKingdomName).CreateSnapshot();
    if (!kingdom->Eof()) {
        state_.gKingdomId = static_cast<int>(kingdom->Get("kingdom_id").AsLong());
    } else {
        prompter_.Message(
            fmt::format("Warning:  The 'Preference' kingdom does not match what is in the {} dataset!  "
                        "Dataset Kingdom will be used.",
                        state_.gDataSetPath));
        const auto first = database.CreateSnapshot("SELECT * FROM kingdoms;");
        state_.gOldKingdomName = state_.gKingdomName;
        state_.gKingdomName = first->Eof() ? "" : std::string(Trim(first->Get("kingdom_name").AsText()));
        state_.gKingdomId = first->Eof() ? 0 : static_cast<int>(first->Get("kingdom_id").AsLong());
    }
    CheckPreferenceRank();
    auto rank = database.OpenQueryDef("Get Rank ID");
    const auto idOf = [&](std::string_view name) {
        const auto row = rank.Set("rank", name).CreateSnapshot();
        return row->Eof() ? 0 : static_cast<int>(row->Get("rank_id").AsLong());
    };
    state_.gRankGenus = idOf("Genus");
    state_.gRankSpecies = idOf("Species");
}

}  // namespace quillon::store
