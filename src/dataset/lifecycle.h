// What a person does with DataSets: New, Open, Save As, and the question about an unsaved record,
// with their dialogs, messages and refusals. The main window, start-up and the batch program call it;
// store/lifecycle does the work on the files.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/application_state.h"
#include "core/outside.h"
#include "store/engine.h"
#include "store/lifecycle/version.h"

namespace quillon::dataset {

inline constexpr std::string_view kDataSetFilter = "Taxonomic Files (*.MDB)|*.mdb|All Files (*.*)|*.*";
inline constexpr std::string_view kTitleNoDataSet = "Taxonomic Quillon - No Open DataSet";

// What the user reads about the DataSet `path` when the program cannot use it.
std::string RefusalText(const std::string& path, store::VersionOrder order);
// The title of the main window while the DataSet is open.
std::string TitleOf(std::string_view path, bool readOnly);

class Lifecycle {
public:
    // All references must outlive this object. An empty gVersion becomes the program's.
    Lifecycle(ApplicationState& state, store::Engine& engine, Prompter& prompter);

    // Replaces the open DataSet. Returns the path when it is open, "" when not; reports nothing.
    std::string OpenDataSetFile(const std::string& path);
    // The reason why the last OpenDataSetFile failed; "" when it did not.
    const std::string& LastOpenError() const { return lastOpenError_; }
    // Closes the open DataSet and clears the path.
    void CloseDataSet();

    // File, New: true when a new DataSet is open.
    bool NewDataSet();
    // The part of it after the dialog: makes `path`, whatever is there, and opens it. A failure is a
    // StoreError, and what was at `path` is then as it was.
    void MakeDataSet(const std::string& path);
    // Opens `path`, which was just made and seeded, and takes the preference kingdom, which is its own.
    void OpenNewDataSet(const std::string& path);
    // File, Open: true when another DataSet is open now.
    bool OpenDataSet();
    // File, Save As: copies the open DataSet, which stays the open one.
    void SaveDataSetAs();

    // How the version of the open DataSet stands to the program's; Unordered also when it cannot be read.
    store::VersionOrder OrderOfOpen() const;
    // The question whether the open DataSet, `path`, is to be brought up to date; true when it has been.
    bool OfferUpdate(const std::string& path);
    // For the DataSet that the program starts with: true, with a message, when it is none of any version.
    bool RefuseAtStart(const std::string& path);
    // Compares the version of the open DataSet, `path`, with that of the program; true when it may not stay
    // open, which the user then knows.
    bool RefuseVersion(const std::string& path);

    // The question about an unsaved record; true means stay where you are. RecordDirty stays as it is: the
    // next load clears it.
    bool AskLoseChanges();
    // Runs after each Yes to that question, when the change tracks of the record are gone. It must not throw.
    std::function<void()> RecordDiscarded;
    // gKingdomId, gPrefRank, gRankGenus and gRankSpecies from the open DataSet, with their warnings.
    void ReadKingdomAndRanks();

private:
    bool MayLoseRecord();
    void DiscardRecord();
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
