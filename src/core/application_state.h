// The application-wide state: one object that main creates and passes down. Its members are empty, zero or
// false at first.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/current_taxon.h"

namespace quillon {

namespace store {
class Database;
}

struct ApplicationState {
    std::shared_ptr<store::Database> gDatabase;  // the open DataSet
    bool gDataSetOpen = false;
    std::string gDataSetPath;    // empty when none is open
    bool gDataSetIsNew = false;  // created in this run; the first import only inserts
    std::string gVersion;        // major.minor.revision of the program

    std::string gKingdomName;     // the preference, until the open DataSet overrides it
    std::string gOldKingdomName;  // the preference that was overridden
    int gKingdomId = 0;
    std::string gPrefRank;
    std::string gOldPrefRank;
    std::string gPrefDataSet;  // path to open at the start
    std::string gPrefAuthor, gPrefWarnings;
    std::string gPrefSaveReferences, gPrefSaveAuthor, gPrefSaveParent, gPrefSaveComments,
        gPrefSaveOtherFields;
    bool gPreferencesChanging = false;

    bool RecordDirty = false;             // a taxon on the form has not been saved
    bool ChangeTrackApplied = false;      // no group of fields has been left changed since it was set
    std::vector<int> gNewChangeTrackIds;  // written for the record still on the form
    bool gQuitRequested = false;
    CurrentTaxon currentTaxon;  // CurrentTaxon, qb_id 0 when none
    int gRankGenus = 0, gRankSpecies = 0;

    // A long job.
    bool gBatchRunning = false;
    bool gBatchCancel = false;
    std::string gRecordFilter = "none";  // "none", "journal", or ` WHERE <column> <operator> "<value>"`
    bool gValidatingForExport = false;
    int gRecordsDone = 0, gRecordsTotal = 0, gValidatedTotal = 0;
    bool gErrorsOccurred = false;       // at least one finding was logged
    bool gRecordHeaderPending = false;  // the heading of the current row is not written yet
    int gLogQbId = 0;                   // the taxon under validation
    std::vector<int> gRejectedTaxa;     // refused in a run for export
    std::vector<std::pair<std::string, int>> gRejectedDocs;  // prefix and id, refused in a run for export
    std::string gExportPath;                                 // the DataSet to export
    std::string gExportFile;
    int gExportedCount = 0;  // lines written

    std::string title;  // of the main window
};

}  // namespace quillon
