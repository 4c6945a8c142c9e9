// The life of a DataSet in the program: made, opened, checked for its version, copied, and the record thrown
// away that was not saved. The rules of File New, Open and Save As are here; windows only call them.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/application_state.h"
#include "core/outside.h"
#include "store/engine.h"

namespace quillon::store {

inline constexpr std::string_view kDataSetFilter = "Taxonomic Files (*.MDB)|*.mdb|All Files (*.*)|*.*";
inline constexpr std::string_view kTitleNoDataSet = "Taxonomic Quillon - No Open DataSet";
inline constexpr std::string_view kProgramVersion = "4.0.6";

class Lifecycle {
public:
    Lifecycle(ApplicationState& state, Engine& engine, Prompter& prompter);

    // Reads the "Version" row of the open DataSet, or of a file opened for just that. `version` is what was
    // found.
    bool IsDataSetVersionValid(std::string& version);
    bool IsFileDataSetVersionValid(const std::string& path, std::string& version);
    // "LT", "EQ", "GT" or "UN".
    std::string CompareDataSetVersion(std::string_view version) const;

    // What a refused DataSet is told, and the question whether the open one, `path`, is to be brought up to
    // date; true when it has been.
    void TellIncompatible(const std::string& path);
    bool OfferUpdate(const std::string& path);
    // The version check of a DataSet that the user chose, with its questions; true when it may not stay open.
    bool RefuseVersion(const std::string& path);

    // Replaces the open DataSet. Gives the path when opened, "" when not; says nothing by itself.
    std::string OpenDataSetFile(const std::string& path);
    // The text of the last failure to open, for callers that want to say more than that it failed.
    const std::string& LastOpenError() const { return lastOpenError_; }
    // Closes the open DataSet and clears the path.
    void CloseDataSet();
    // The whole New command; true when a new DataSet is open.
    bool NewDataSet();
    // NewDataSet from the point where the file is chosen and may be overwritten: makes and seeds `path`, and
    // opens it. The errors of the store pass through, and what was at `path` is then as it was.
    void MakeDataSet(const std::string& path);
    // File, Open with its dialog and all refusals; true when another DataSet is open now.
    bool OpenDataSet();
    // File, Save As: asks, copies, and opens the old path again.
    void SaveDataSetAs();

    // An empty file with all tables and named queries.
    void CreateDataSetFile(const std::string& path);
    // The seed rows for gKingdomName, into the open DataSet.
    void SeedDataSet();

    // The unsaved record question; true means stay where you are. It does not clear RecordDirty: the next
    // load does.
    bool AskLoseChanges();
    // Run after each Yes to that question, when the change tracks of the record are gone. It must not throw.
    std::function<void()> RecordDiscarded;
    void DiscardUnsavedRecord();
    // gKingdomId, gPrefRank, gRankGenus and gRankSpecies from the open DataSet, with their warnings.
    void ReadKingdomAndRanks();

private:
    void Seed(Database& database);
    void MakeSeededFile(const std::string& path);
    void GoBackTo(const std::string& path, bool wasNew);
    bool HasValidVersion(Database& database, std::string& version);
    void CheckPreferenceRank();

    ApplicationState& state_;
    Engine& engine_;
    Prompter& prompter_;
    std::string lastOpenError_;
};

}  // namespace quillon::store
