// The handlers of the tagged format: one for each kind of record. A handler reads the fields of a line, maps
// the file's ids to ids of this DataSet, and stores the record.
//
// Lines may come in any order: a record that is referred to before its own line gets its id at once. A line
// with a finding is not stored, but ids that it has introduced stay.
#pragma once

#include <string_view>

#include "import/import_run.h"

namespace quillon::importing {

class Record;

// Runs the handler of the line's tag. Reports an unknown tag. Throws StoreError only when nothing more can be
// stored.
void HandleLine(ImportRun& run, std::string_view line);

// Each handles a line of its kind, from the first field on.
void ReadTaxon(ImportRun& run, Record& record);            // [TU]
void ReadAuthor(ImportRun& run, Record& record);           // [TA]
void ReadNodcId(ImportRun& run, Record& record);           // [NO]
void ReadVernacular(ImportRun& run, Record& record);       // [VR]
void ReadSynonymLink(ImportRun& run, Record& record);      // [SY]
void ReadDivision(ImportRun& run, Record& record);         // [GD]
void ReadJurisdiction(ImportRun& run, Record& record);     // [JR]
void ReadReference(ImportRun& run, Record& record);        // [RF]
void ReadVernReference(ImportRun& run, Record& record);    // [VL]
void ReadPublication(ImportRun& run, Record& record);      // [PB]
void ReadExpert(ImportRun& run, Record& record);           // [EX]
void ReadOtherSource(ImportRun& run, Record& record);      // [OS]
void ReadComment(ImportRun& run, Record& record);          // [CM]
void ReadCommentLink(ImportRun& run, Record& record);      // [CL]
void ReadChangeTrack(ImportRun& run, Record& record);      // [CT]
void ReadChangeOperation(ImportRun& run, Record& record);  // [CO]
void ReadChangeComment(ImportRun& run, Record& record);    // [CC]
void ReadDeletion(ImportRun& run, Record& record);         // [CM-] and the like

}  // namespace quillon::importing
