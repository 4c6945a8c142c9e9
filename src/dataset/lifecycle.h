// The commands on DataSets: New, Open, Save As, and the question about an unsaved record, with their dialogs,
// messages and refusals. The main window, start-up and the batch program call it; store/lifecycle does the
// work on the files.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/application_state.h"
#include "core/outside.h"
#include "store/engine.h"
#include "store/lifecycle/file_copy.h"
#include "store/lifecycle/version.h"

namespace quillon::dataset {

inline constexpr std::string_view kDataSetFilter = "Taxonomic Files (*.MDB)|*.mdb|All Files (*.*)|*.*";
inline constexpr std::string_view kTitleNoDataSet = "Taxonomic Quillon - No Open DataSet";

// The message for a DataSet `path` that the program cannot use.
std::string RefusalText(const std::string& path, store::VersionOrder order);
// The title of the main window while the DataSet is open.
std::string TitleOf(std::string_view path, bool readOnly);

class Lifecycle {
public:
    // All references must outlive this object. Sets gVersion if it is empty.
    Lifecycle(ApplicationState& state, store::Engine& engine, Prompter& prompter);

    // The engine that has the open DataSet.
    store::Engine& Engine() const { return engine_; }
    // Replaces the open DataSet. Returns the path, or "" on failure; reports nothing.
    std::string OpenDataSetFile(const std::string& path);
    // The reason why the last OpenDataSetFile failed; "" after a success.
    const std::string& LastOpenError() const { return lastOpenError_; }
    // Closes the open DataSet and clears the path.
    void CloseDataSet();

    // File, New: true when a new DataSet is open.
    bool NewDataSet();
    // The part of NewDataSet after the dialog: makes and opens `path`, replacing any file there. Throws
    // StoreError; `path` is then unchanged.
    void MakeDataSet(const std::string& path);
    // Opens `path`, which was just made and seeded, and applies the preferred kingdom, which is that of the
    // file.
    void OpenNewDataSet(const std::string& path);
    // File, Open: true when it has opened a DataSet.
    bool OpenDataSet();
    // File, Save As: copies the open DataSet, which stays open.
    void SaveDataSetAs();

    // Compares the version of the open DataSet with the program's; Unordered also when it cannot be read.
    store::VersionOrder OrderOfOpen() const;
    // Asks whether to update the open DataSet, `path`; true when it has been updated.
    bool OfferUpdate(const std::string& path);
    // For the DataSet opened at the start: true, with a message, when it has no valid version.
    bool RefuseAtStart(const std::string& path);
    // Compares the version of the open DataSet, `path`, with the program's. True, after a message, when it
    // must not stay open.
    bool RefuseVersion(const std::string& path);

    // Asks about an unsaved record. True when the user stays on it. Does not change RecordDirty, which the
    // next load clears.
    bool AskLoseChanges();
    // Its two halves, for a command that can still be canceled after the question: the question, true when
    // the record may go, and what a Yes does.
    bool MayLoseRecord();
    void DiscardRecord();
    // Runs after the change tracks of a discarded record have been removed. Must not throw.
    std::function<void()> RecordDiscarded;
    // Called while New and Save As write a file; when it returns false they end without a message, and
    // everything is as it was. May be empty. Must not use this object.
    store::GoOn GoOn;
    // Reads gKingdomId, gPrefRank, gRankGenus and gRankSpecies from the open DataSet and shows warnings.
    void ReadKingdomAndRanks();

private:
    bool IsCanceled() const { return GoOn && !GoOn(); }
    bool MakeInPlaceOfOpen(const std::string& path);
    void CopyOpenTo(const std::string& path);
    bool OpenChosen(const std::string& path);
    void GoBackTo(const std::string& path, bool wasNew);

    ApplicationState& state_;
    store::Engine& engine_;
    Prompter& prompter_;
    std::string lastOpenError_;
};

}  // namespace quillon::dataset
