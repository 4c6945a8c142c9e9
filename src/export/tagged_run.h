// The shared state of the sections of one tagged export: the DataSet, the line writer, the taxa under the
// filter, ids found by earlier sections, and the row loop. WriteTaggedFile makes one for each run.
#pragma once

#include <cstdint>

#include "core/application_state.h"
#include "core/gauge.h"
#include "core/outside.h"
#include "core/turns.h"
#include "export/exclusion.h"
#include "export/line_writer.h"
#include "selection/selected_taxa.h"
#include "store/engine.h"
#include "store/row_stream.h"

namespace quillon::exporting {

// The objects that an export works with; the forms and quillon-batch make it.
struct ExportTools {
    ApplicationState& state;
    store::Database& database;
    Prompter& prompter;
    Turns& turns;
    const Gauge& gauge;
    LineWriter& line;

    // Counts the row and moves the gauge.
    void CountRow();
};

struct TaggedRun {
    explicit TaggedRun(ExportTools& exportTools);

    // Calls `visit` for each row of a table until the end or a Cancel.
    template <typename Visit>
    void ForEachRow(store::RowStream& rows, const Visit& visit) {
        while (rows.Next() && tools.turns.Next()) visit();
    }
    // The rows of a table that a section reads: those with the ids if a filter selects few of them, otherwise
    // all.
    store::TableRows RowsAmong(std::string_view column, const IdSet& ids) const;
    // Writes a field in the form of the layout.
    void AddField(const RecordLayout& layout, const store::RowStream& rows, std::size_t place);
    void WriteRow(const RecordLayout& layout, const store::RowStream& rows);
    void EndLine();

    ExportTools& tools;
    Exclusion exclusion;
    selection::SelectedTaxa taxa;
    bool filtered = false;  // gRecordFilter is other than "none"
    bool journal = false;
    IdSet existing;  // all taxa
    IdSet listed;    // the ids of the filter's list, including those without a taxon
    IdSet selected;  // the taxa among them
    IdSet authors;   // of the selected taxa
    DocumentSet documents;
    IdSet comments, changeTracks;
    int taxaWritten = 0;
};

// The sections, in the order of the file.
void ExportTaxa(TaggedRun& run);
void ExportAuthors(TaggedRun& run);
void ExportNodc(TaggedRun& run);
void ExportVernaculars(TaggedRun& run);
void ExportSynonymLinks(TaggedRun& run);
void ExportGeographicDivisions(TaggedRun& run);
void ExportJurisdictions(TaggedRun& run);
void ExportReferenceLinks(TaggedRun& run);
void ExportVernRefLinks(TaggedRun& run);
void ExportComments(TaggedRun& run);
void ExportChangeTracks(TaggedRun& run);
void ExportChangeOperations(TaggedRun& run);
void ExportChangeComments(TaggedRun& run);
void ExportTombstones(TaggedRun& run);

}  // namespace quillon::exporting
