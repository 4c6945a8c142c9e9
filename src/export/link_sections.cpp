// The records that belong to a taxon by its qb_id, and the authors. A row is exported only with a selected
// taxon.

#include "export/tagged_run.h"

namespace quillon::exporting {

namespace {

using store::RowStream;

std::int32_t Id(const RowStream& rows, std::size_t place) {
    return static_cast<std::int32_t>(rows.Long(place));
}

// Calls `visit` with the taxon's id for the rows of the record's table whose taxon is selected.
template <typename Visit>
void ForEachOfTaxa(TaggedRun& run, const RecordLayout& layout, const Visit& visit) {
    RowStream rows(run.tools.database, layout.table, layout.Columns(), run.RowsAmong("qb_id", run.selected));
    const std::size_t taxon = layout.Place("qb_id");
    run.ForEachRow(rows, [&] {
        const std::int32_t qb_id = Id(rows, taxon);
        if (rows.IsNull(taxon) || !run.selected.Has(qb_id)) return;
        run.tools.CountRow();
        visit(rows, qb_id);
    });
}

void ExportRowsOfTaxa(TaggedRun& run, const RecordLayout& layout) {
    ForEachOfTaxa(run, layout, [&](const RowStream& rows, std::int32_t qb_id) {
        if (run.exclusion.RowIsExportable(qb_id)) run.WriteRow(layout, rows);
    });
}

// Exports the rows of the record's table whose id, the first column, was found before.
template <typename Exportable>
void ExportRowsById(TaggedRun& run, const RecordLayout& layout, const IdSet& ids,
                    const Exportable& exportable) {
    RowStream rows(run.tools.database, layout.table, layout.Columns(),
                   run.RowsAmong(layout.fields[0].column, ids));
    run.ForEachRow(rows, [&] {
        const std::int32_t id = Id(rows, 0);
        if (!ids.Has(id)) return;
        run.tools.CountRow();
        if (exportable(id)) run.WriteRow(layout, rows);
    });
}

}  // namespace

void ExportAuthors(TaggedRun& run) {
    ExportRowsById(run, exchange::kAuthorRecord, run.authors,
                   [&](std::int32_t authorId) { return run.exclusion.AuthorIsExportable(authorId); });
}

void ExportNodc(TaggedRun& run) {
    ExportRowsOfTaxa(run, exchange::kNodcRecord);
}
void ExportVernaculars(TaggedRun& run) {
    ExportRowsOfTaxa(run, exchange::kVernacularRecord);
}
void ExportGeographicDivisions(TaggedRun& run) {
    ExportRowsOfTaxa(run, exchange::kDivisionRecord);
}
void ExportJurisdictions(TaggedRun& run) {
    ExportRowsOfTaxa(run, exchange::kJurisdictionRecord);
}

// Both taxa must be selected. For the journal it is enough that one is selected and the other exists.
void ExportSynonymLinks(TaggedRun& run) {
    const auto isSelected = [&](std::int32_t synonym, std::int32_t accepted) {
        if (!run.journal) return run.selected.Has(synonym) && run.selected.Has(accepted);
        return run.existing.Has(synonym) && run.existing.Has(accepted) &&
               (run.selected.Has(synonym) || run.selected.Has(accepted));
    };
    RowStream rows(run.tools.database, exchange::kSynonymRecord.table, exchange::kSynonymRecord.Columns());
    run.ForEachRow(rows, [&] {
        if (!isSelected(Id(rows, 0), Id(rows, 1))) return;
        run.tools.CountRow();
        if (run.exclusion.RowIsExportable(Id(rows, 0))) run.WriteRow(exchange::kSynonymRecord, rows);
    });
}

void ExportVernRefLinks(TaggedRun& run) {
    const std::size_t prefix = exchange::kVernReferenceRecord.Place("qb_documentation_id_prefix");
    const std::size_t document = exchange::kVernReferenceRecord.Place("qb_documentation_id");
    ForEachOfTaxa(run, exchange::kVernReferenceRecord, [&](const RowStream& rows, std::int32_t qb_id) {
        if (run.exclusion.LinkIsExportable(qb_id, rows.Text(prefix), Id(rows, document)))
            run.WriteRow(exchange::kVernReferenceRecord, rows);
    });
}

void ExportComments(TaggedRun& run) {
    const std::size_t comment = exchange::kCommentLinkRecord.Place("qb_comment_id");
    ForEachOfTaxa(run, exchange::kCommentLinkRecord, [&](const RowStream& rows, std::int32_t qb_id) {
        run.comments.Add(Id(rows, comment));
        if (run.exclusion.RowIsExportable(qb_id)) run.WriteRow(exchange::kCommentLinkRecord, rows);
    });
    if (run.tools.turns.Canceled()) return;
    ExportRowsById(run, exchange::kCommentRecord, run.comments,
                   [&](std::int32_t commentId) { return run.exclusion.CommentIsExportable(commentId); });
}

void ExportChangeTracks(TaggedRun& run) {
    ForEachOfTaxa(run, exchange::kChangeTrackRecord, [&](const RowStream& rows, std::int32_t) {
        run.changeTracks.Add(Id(rows, 0));
        run.WriteRow(exchange::kChangeTrackRecord, rows);
    });
}

void ExportChangeOperations(TaggedRun& run) {
    ExportRowsById(run, exchange::kChangeOperationRecord, run.changeTracks,
                   [](std::int32_t) { return true; });
}

void ExportChangeComments(TaggedRun& run) {
    ExportRowsById(run, exchange::kChangeCommentRecord, run.changeTracks, [](std::int32_t) { return true; });
}

void ExportTombstones(TaggedRun& run) {
    RowStream rows(run.tools.database, "db_tombstone", {"pk1", "pk2", "pk3", "pk4", "table_name"});
    run.ForEachRow(rows, [&] {
        run.tools.CountRow();
        const RecordLayout& layout = exchange::DeletionRecord(rows.Text(4));
        run.tools.line.Begin(layout);
        // Keys are written as stored, whatever their form.
        for (std::size_t i = 0; i < layout.fields.size(); ++i) run.tools.line.Text(rows.Text(i));
        run.EndLine();
    });
}

}  // namespace quillon::exporting
