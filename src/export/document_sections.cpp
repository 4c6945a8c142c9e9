// The reference links, and the documents linked from taxa and vernaculars.

#include <fmt/format.h>

#include "core/document_kinds.h"
#include "export/tagged_run.h"

namespace quillon::exporting {

namespace {

using store::RowStream;

std::int32_t Id(const RowStream& rows, std::size_t place) {
    return static_cast<std::int32_t>(rows.Long(place));
}

void ExportLinks(TaggedRun& run) {
    const RecordLayout& layout = exchange::kReferenceRecord;
    const std::size_t prefix = layout.Place("qb_documentation_id_prefix");
    const std::size_t document = layout.Place("qb_documentation_id");
    RowStream rows(run.tools.database, layout.table, layout.Columns(), run.RowsAmong("qb_id", run.selected));
    run.ForEachRow(rows, [&] {
        const std::int32_t qb_id = Id(rows, 0);
        if (!run.selected.Has(qb_id)) return;
        run.tools.CountRow();
        run.documents.Add(rows.Text(prefix), Id(rows, document));
        if (run.exclusion.LinkIsExportable(qb_id, rows.Text(prefix), Id(rows, document)))
            run.WriteRow(layout, rows);
    });
}

void AddDocumentsOfVernaculars(TaggedRun& run) {
    RowStream rows(run.tools.database, exchange::kVernReferenceRecord.table,
                   {"qb_id", "qb_documentation_id_prefix", "qb_documentation_id"},
                   run.RowsAmong("qb_id", run.selected));
    while (rows.Next() && run.tools.turns.Next())
        if (run.selected.Has(Id(rows, 0))) run.documents.Add(rows.Text(1), Id(rows, 2));
}

// The comment of a document is found by id only: if several prefixes share an id, the first row counts.
class Comments {
public:
    Comments(ExportTools& tools, const DocumentKind& kind) : database_(tools.database), kind_(kind) {
        IdSet met;
        RowStream rows(database_, kind.table, {kind.idColumn}, {store::TableRows::Order::Any, {}, {}});
        while (rows.Next() && tools.turns.Next())
            met.Has(Id(rows, 0)) ? shared_.Add(Id(rows, 0)) : met.Add(Id(rows, 0));
    }
    bool IsShared(std::int32_t id) const { return shared_.Has(id); }
    std::string First(std::int32_t id) {
        RowStream rows(database_, fmt::format("SELECT {} from {} where  {} = {};", kind_.commentColumn,
                                              kind_.table, kind_.idColumn, id));
        return rows.Next() ? std::string(rows.Text(0)) : std::string();
    }

private:
    store::Database& database_;
    const DocumentKind& kind_;
    IdSet shared_;
};

void WriteDocument(TaggedRun& run, const RecordLayout& layout, const RowStream& rows, Comments& comments) {
    const std::size_t comment = layout.fields.size() - 1;
    run.tools.line.Begin(layout);
    for (std::size_t i = 0; i < comment; ++i) run.AddField(layout, rows, i);
    const std::int32_t id = Id(rows, 1);
    comments.IsShared(id) ? run.tools.line.Text(comments.First(id)) : run.tools.line.Text(rows.Text(comment));
    run.EndLine();
}

void ExportDocuments(TaggedRun& run, const DocumentKind& kind, const RecordLayout& layout) {
    if (run.tools.turns.Canceled()) return;
    Comments comments(run.tools, kind);
    if (run.tools.turns.Canceled()) return;
    RowStream rows(run.tools.database, layout.table, layout.Columns(),
                   run.RowsAmong(kind.idColumn, run.documents.AllIds()));
    run.ForEachRow(rows, [&] {
        if (!run.documents.Has(rows.Text(0), Id(rows, 1))) return;
        run.tools.CountRow();
        if (run.exclusion.DocIsExportable(rows.Text(0), Id(rows, 1)))
            WriteDocument(run, layout, rows, comments);
    });
}

}  // namespace

void ExportReferenceLinks(TaggedRun& run) {
    ExportLinks(run);
    if (run.tools.turns.Canceled()) return;
    AddDocumentsOfVernaculars(run);
    ExportDocuments(run, kPublications, exchange::kPublicationRecord);
    ExportDocuments(run, kExperts, exchange::kExpertRecord);
    ExportDocuments(run, kOtherSources, exchange::kSourceRecord);
}

}  // namespace quillon::exporting
