// The handlers of the tagged format: one for each tag. A handler takes a line, cuts it into fields, turns the
// file's ids into ids of this DataSet, and stores the record.
//
// Lines may come in any order: what a line names before its own line has come gets its id at once. A line
// with a finding stores nothing of itself; the ids that it has made known by then stay known.
#pragma once

#include <string_view>

#include "import/import_run.h"

namespace quillon::importing {

// Runs the handler of the line's tag; an unknown tag is a finding. Throws StoreError only when nothing more
// can be stored.
void HandleLine(ImportRun& run, std::string_view line);

// Each takes a line with its tag.
void ReadTaxon(ImportRun& run, std::string_view line);            // [TU]
void ReadAuthor(ImportRun& run, std::string_view line);           // [TA]
void ReadNodcId(ImportRun& run, std::string_view line);           // [NO]
void ReadVernacular(ImportRun& run, std::string_view line);       // [VR]
void ReadSynonymLink(ImportRun& run, std::string_view line);      // [SY]
void ReadDivision(ImportRun& run, std::string_view line);         // [GD]
void ReadJurisdiction(ImportRun& run, std::string_view line);     // [JR]
void ReadReference(ImportRun& run, std::string_view line);        // [RF]
void ReadVernReference(ImportRun& run, std::string_view line);    // [VL]
void ReadPublication(ImportRun& run, std::string_view line);      // [PB]
void ReadExpert(ImportRun& run, std::string_view line);           // [EX]
void ReadOtherSource(ImportRun& run, std::string_view line);      // [OS]
void ReadComment(ImportRun& run, std::string_view line);          // [CM]
void ReadCommentLink(ImportRun& run, std::string_view line);      // [CL]
void ReadChangeTrack(ImportRun& run, std::string_view line);      // [CT]
void ReadChangeOperation(ImportRun& run, std::string_view line);  // [CO]
void ReadChangeComment(ImportRun& run, std::string_view line);    // [CC]
void ReadDeletion(ImportRun& run, std::string_view line);         // [CM-] and the like

}  // namespace quillon::importing
