#include "export/tagged_export.h"

#include <array>

#include "selection/batch_counts.h"

namespace quillon::exporting {

namespace {

using Section = void (*)(TaggedRun&);

constexpr std::array<Section, 14> kSections = {
    ExportTaxa,           ExportAuthors,        ExportNodc,
    ExportVernaculars,    ExportSynonymLinks,   ExportGeographicDivisions,
    ExportJurisdictions,  ExportReferenceLinks, ExportVernRefLinks,
    ExportComments,       ExportChangeTracks,   ExportChangeOperations,
    ExportChangeComments, ExportTombstones,
};

}  // namespace

int WriteTaggedFile(ExportTools& tools) {
    tools.state.gExportedCount = 0;
    TaggedRun run(tools);
    if (!tools.state.gValidatingForExport)
        selection::CountBatchRecords(tools.state, tools.database, run.taxa, tools.turns);
    for (const Section section : kSections)
        if (!tools.turns.Canceled()) section(run);
    return run.taxaWritten;
}

}  // namespace quillon::exporting
