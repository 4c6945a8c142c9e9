// The [TU] records: the kingdom's root first, then the taxa under the filter, each with a parent that is in
// the file.

#include <string>

#include "export/tagged_export.h"
#include "export/tagged_run.h"
#include "validation/record_filter.h"

namespace quillon::exporting {

namespace {

using store::RowStream;

// Fills every missing parent_tsn from the parent's row; the one write that an export performs. Rows whose
// parent has no tsn either would stay as they are, so they are left alone.
constexpr std::string_view kFillParentTsn =
    "UPDATE qb_taxonomic_units INNER JOIN qb_taxonomic_units AS qb_taxonomic_units_1 "
    "ON qb_taxonomic_units.parent_qb_id = qb_taxonomic_units_1.qb_id "
    "SET qb_taxonomic_units.parent_tsn = [qb_taxonomic_units_1].[tsn] "
    "WHERE (((qb_taxonomic_units.parent_tsn) Is Null) AND ((qb_taxonomic_units_1.tsn) Is Not Null));";
constexpr std::string_view kMissingParentTsn =
    "SELECT qb_taxonomic_units.parent_tsn FROM qb_taxonomic_units INNER JOIN qb_taxonomic_units AS "
    "qb_taxonomic_units_1 "
    "ON qb_taxonomic_units.parent_qb_id = qb_taxonomic_units_1.qb_id "
    "WHERE (((qb_taxonomic_units.parent_tsn) Is Null) AND ((qb_taxonomic_units_1.tsn) Is Not Null));";
constexpr std::string_view kRoot = "Select qb_id from qb_taxonomic_units where rank_id = 10;";

constexpr std::string_view kCutReason = "syn-original combina";
constexpr std::string_view kWholeReason = "syn-original combination";

// A DataSet that cannot be written is exported all the same when there is nothing to fill.
void FillParentTsn(store::Database& database) {
    const bool missing = RowStream(database, kMissingParentTsn).Next();
    if (missing) database.Execute(kFillParentTsn);
}

IdSet ListIds(const TaggedRun& run) {
    IdSet ids;
    store::Database& database = run.tools.database;
    const auto add = [&](RowStream&& rows) {
        while (rows.Next()) ids.Add(static_cast<std::int32_t>(rows.Long(0)));
    };
    if (run.journal)
        add(RowStream(database, "journal", {"qb_id"}));
    else if (run.filtered)
        add(RowStream(database, "select qb_id from qb_taxonomic_units " +
                                    validation::RunnableFilter(run.tools.state.gRecordFilter)));
    else
        add(RowStream(database, "qb_taxonomic_units", {"qb_id"}, {store::TableRows::Order::Any}));
    return ids;
}

class TaxonLines {
public:
    explicit TaxonLines(TaggedRun& run) : run_(run), database_(run.tools.database) {
        RowStream authors(database_, kAuthorRecord.table, {"qb_taxon_author_id", "taxon_author_id"});
        while (authors.Next())
            authorityAuthors_.Add(static_cast<std::int32_t>(authors.Long(0)),
                                  static_cast<std::int32_t>(authors.Long(1)));
    }

    void WriteRoot() {
        RowStream first(database_, kRoot);
        if (!first.Next()) throw ExportError("No current record.");
        root_ = static_cast<std::int32_t>(first.Long(0));
        IdSet ids;
        ids.Add(root_);
        RowStream row(database_, kTaxonRecord.table, Columns(),
                      {store::TableRows::Order::Key, "qb_id", ids.Ids()});
        row.Next();
        if (row.IsNull(taxon_field::kKingdom)) throw ExportError("Invalid use of Null");
        Write(row, [&](std::size_t place) { return AddRootField(row, place); });
    }

    void WriteOthers() {
        RowStream rows(database_, kTaxonRecord.table, Columns(), run_.RowsAmong("qb_id", run_.listed));
        run_.ForEachRow(rows, [&] { Visit(rows); });
    }

private:
    // The authority's id of the author has no column of its own: the author is read there once more.
    static std::vector<std::string_view> Columns() {
        std::vector<std::string_view> columns = kTaxonRecord.Columns();
        columns[taxon_field::kAuthorityAuthor] = "qb_taxon_author_id";
        return columns;
    }

    void Visit(const RowStream& row) {
        const auto qb_id = static_cast<std::int32_t>(row.Long(0));
        if (run_.filtered && !run_.listed.Has(qb_id)) return;
        run_.selected.Add(qb_id);
        if (!row.IsNull(taxon_field::kAuthor))
            run_.authors.Add(static_cast<std::int32_t>(row.Long(taxon_field::kAuthor)));
        run_.tools.CountRow();
        if (qb_id == root_) return;
        if (row.IsNull(taxon_field::kKingdom)) CancelWithoutKingdom(row);
        if (run_.exclusion.RowIsExportable(qb_id))
            Write(row, [&](std::size_t place) { return AddTaxonField(row, place); });
    }

    void CancelWithoutKingdom(const RowStream& row) {
        std::string text = "record ";
        for (const std::string_view column : {"unit_name1", "unit_name2", "unit_name3", "unit_name4"}) {
            if (column != "unit_name1") text += ' ';
            text += row.Text(kTaxonRecord.Place(column));
        }
        run_.tools.prompter.Message(text + " has no kingdom!  Cancelling export.");
        run_.tools.state.gBatchCancel = true;
    }

    // `special` writes the fields that are its own, and says so.
    template <typename Special>
    void Write(const RowStream& row, const Special& special) {
        run_.tools.line.Begin(kTaxonRecord);
        for (std::size_t i = 0; i < kTaxonRecord.fields.size(); ++i)
            if (!special(i)) AddPlainField(row, i);
        run_.EndLine();
        ++run_.taxaWritten;
    }

    void AddPlainField(const RowStream& row, std::size_t place) {
        const bool cut = place == taxon_field::kReason && row.Text(place) == kCutReason;
        cut ? run_.tools.line.Text(kWholeReason) : run_.AddField(kTaxonRecord, row, place);
    }

    bool AddRootField(const RowStream& row, std::size_t place) {
        LineWriter& line = run_.tools.line;
        switch (place) {
            case taxon_field::kParentTsn:
                line.Number(row.Long(kTaxonRecord.Place("tsn")));
                return true;
            case taxon_field::kParent:
                line.Number(root_);
                return true;
            case taxon_field::kAuthorityAuthor:
            case taxon_field::kAuthor:
            case taxon_field::kHybrid:
                line.Empty();
                return true;
            default:
                return false;
        }
    }

    // A taxon whose parent stays behind hangs from the kingdom.
    bool AddTaxonField(const RowStream& row, std::size_t place) {
        LineWriter& line = run_.tools.line;
        const auto number = [&] { return static_cast<std::int32_t>(row.Long(place)); };
        switch (place) {
            case taxon_field::kParent:
                if (row.IsNull(place))
                    line.Empty();
                else
                    line.Number(run_.listed.Has(number()) ? number() : root_);
                return true;
            case taxon_field::kAuthorityAuthor:
                line.Number(authorityAuthors_.Find(number()));
                return true;
            default:
                return false;
        }
    }

    TaggedRun& run_;
    store::Database& database_;
    IdMap authorityAuthors_;
    std::int32_t root_ = 0;
};

}  // namespace

void ExportTaxa(TaggedRun& run) {
    FillParentTsn(run.tools.database);
    TaxonLines lines(run);
    lines.WriteRoot();
    run.listed = ListIds(run);
    lines.WriteOthers();
}

}  // namespace quillon::exporting
