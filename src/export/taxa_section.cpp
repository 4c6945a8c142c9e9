// The [TU] records: the kingdom's root first, then the taxa under the filter, each with a parent that is in
// the file.

#include <fmt/format.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/vocabulary.h"
#include "export/tagged_export.h"
#include "export/tagged_run.h"

namespace quillon::exporting {

namespace {

using store::RowStream;

// Fills missing parent_tsn from the parents' rows, the only write of an export. Each statement covers as many
// taxa as fit into one turn.
constexpr std::string_view kFillParentTsn =
    "UPDATE qb_taxonomic_units INNER JOIN qb_taxonomic_units AS qb_taxonomic_units_1 "
    "ON qb_taxonomic_units.parent_qb_id = qb_taxonomic_units_1.qb_id "
    "SET qb_taxonomic_units.parent_tsn = [qb_taxonomic_units_1].[tsn] "
    "WHERE (((qb_taxonomic_units.parent_tsn) Is Null) AND (qb_taxonomic_units.qb_id Between {} And {}));";
constexpr std::size_t kMostFilled = 500;
constexpr std::int64_t kMostVisited = 20000;

constexpr std::string_view kCutReason = "syn-original combina";
constexpr std::string_view kWholeReason = "syn-original combination";

// All taxa, read once before any is written: their ids, the root, and those whose parent_tsn can be filled
// in. A read-only DataSet can be exported if there are none of the latter.
class AllTaxa {
public:
    explicit AllTaxa(TaggedRun& run) {
        RowStream rows(run.tools.database, exchange::kTaxonRecord.table,
                       {"qb_id", "tsn", "parent_qb_id", "parent_tsn", "rank_id"});
        while (rows.Next() && run.tools.turns.Next()) Add(rows, run.existing);
    }

    // The first taxon of the kingdom's rank; empty when there is none.
    std::optional<std::int32_t> Root() const { return root_; }

    void FillParentTsn(ExportTools& tools) const {
        for (std::size_t first = 0, next = 0; first < missing_.size(); first = next) {
            std::int32_t last = 0;
            std::size_t filled = 0;
            for (; next < missing_.size() && filled < kMostFilled; ++next) {
                if (std::int64_t{missing_[next].qb_id} - missing_[first].qb_id > kMostVisited) break;
                if (!HasTsn(missing_[next].parent_qb_id)) continue;
                last = missing_[next].qb_id;
                ++filled;
            }
            if (filled == 0) continue;
            if (!tools.turns.Next()) return;
            tools.database.Execute(fmt::format(fmt::runtime(kFillParentTsn), missing_[first].qb_id, last));
        }
    }

private:
    struct Missing {
        std::int32_t qb_id, parent_qb_id;
    };

    void Add(const RowStream& row, IdSet& existing) {
        const auto id = [&](std::size_t column) { return static_cast<std::int32_t>(row.Long(column)); };
        existing.Add(id(0));
        if (!row.IsNull(1)) withTsn_.Add(id(0));
        if (row.IsNull(3) && !row.IsNull(2)) missing_.push_back({id(0), id(2)});
        if (!root_ && row.Long(4) == kKingdomRankId) root_ = id(0);
    }
    bool HasTsn(std::int32_t qb_id) const { return withTsn_.Has(qb_id); }

    IdSet withTsn_;
    std::vector<Missing> missing_;
    std::optional<std::int32_t> root_;
};

class TaxonLines {
public:
    TaxonLines(TaggedRun& run, std::int32_t root) : run_(run), database_(run.tools.database), root_(root) {
        RowStream authors(database_, exchange::kAuthorRecord.table,
                          {"qb_taxon_author_id", "taxon_author_id"});
        while (authors.Next() && run.tools.turns.Next())
            authorityAuthors_.Add(static_cast<std::int32_t>(authors.Long(0)),
                                  static_cast<std::int32_t>(authors.Long(1)));
    }

    void WriteRoot() {
        IdSet ids;
        ids.Add(root_);
        RowStream row(database_, exchange::kTaxonRecord.table, Columns(),
                      {store::TableRows::Order::Key, "qb_id", ids.Ids()});
        row.Next();
        if (row.IsNull(exchange::taxon_field::kKingdom)) throw ExportError("Invalid use of Null");
        Write(row, [&](std::size_t place) { return AddRootField(row, place); });
    }

    void WriteOthers() {
        RowStream rows(database_, exchange::kTaxonRecord.table, Columns(),
                       run_.RowsAmong("qb_id", run_.listed));
        run_.ForEachRow(rows, [&] { Visit(rows); });
    }

private:
    // The authority's id of the author has no column, so the author's column is read twice.
    static std::vector<std::string_view> Columns() {
        std::vector<std::string_view> columns = exchange::kTaxonRecord.Columns();
        columns[exchange::taxon_field::kAuthorityAuthor] = "qb_taxon_author_id";
        return columns;
    }

    void Visit(const RowStream& row) {
        const auto qb_id = static_cast<std::int32_t>(row.Long(0));
        if (run_.filtered && !run_.listed.Has(qb_id)) return;
        run_.selected.Add(qb_id);
        if (!row.IsNull(exchange::taxon_field::kAuthor))
            run_.authors.Add(static_cast<std::int32_t>(row.Long(exchange::taxon_field::kAuthor)));
        run_.tools.CountRow();
        if (qb_id == root_) return;
        if (row.IsNull(exchange::taxon_field::kKingdom)) CancelWithoutKingdom(row);
        if (run_.exclusion.RowIsExportable(qb_id))
            Write(row, [&](std::size_t place) { return AddTaxonField(row, place); });
    }

    void CancelWithoutKingdom(const RowStream& row) {
        std::string text = "record ";
        for (const std::string_view column : {"unit_name1", "unit_name2", "unit_name3", "unit_name4"}) {
            if (column != "unit_name1") text += ' ';
            text += row.Text(exchange::kTaxonRecord.Place(column));
        }
        run_.tools.prompter.Message(text + " has no kingdom!  Cancelling export.");
        run_.tools.turns.Cancel();
    }

    // `special` returns true for the fields that it has written itself.
    template <typename Special>
    void Write(const RowStream& row, const Special& special) {
        run_.tools.line.Begin(exchange::kTaxonRecord);
        for (std::size_t i = 0; i < exchange::kTaxonRecord.fields.size(); ++i)
            if (!special(i)) AddPlainField(row, i);
        run_.EndLine();
        ++run_.taxaWritten;
    }

    void AddPlainField(const RowStream& row, std::size_t place) {
        const bool cut = place == exchange::taxon_field::kReason && row.Text(place) == kCutReason;
        cut ? run_.tools.line.Text(kWholeReason) : run_.AddField(exchange::kTaxonRecord, row, place);
    }

    bool AddRootField(const RowStream& row, std::size_t place) {
        LineWriter& line = run_.tools.line;
        switch (place) {
            case exchange::taxon_field::kParentTsn:
                line.Number(row.Long(exchange::kTaxonRecord.Place("tsn")));
                return true;
            case exchange::taxon_field::kParent:
                line.Number(root_);
                return true;
            case exchange::taxon_field::kAuthorityAuthor:
            case exchange::taxon_field::kAuthor:
            case exchange::taxon_field::kHybrid:
                line.Empty();
                return true;
            default:
                return false;
        }
    }

    // A taxon whose parent is not in the file gets the kingdom's root as its parent.
    bool AddTaxonField(const RowStream& row, std::size_t place) {
        LineWriter& line = run_.tools.line;
        const auto number = [&] { return static_cast<std::int32_t>(row.Long(place)); };
        switch (place) {
            case exchange::taxon_field::kParent:
                if (row.IsNull(place))
                    line.Empty();
                else
                    line.Number(run_.listed.Has(number()) ? number() : root_);
                return true;
            case exchange::taxon_field::kAuthorityAuthor:
                line.Number(authorityAuthors_.Find(number()));
                return true;
            default:
                return false;
        }
    }

    TaggedRun& run_;
    store::Database& database_;
    selection::IdMap authorityAuthors_;
    std::int32_t root_;
};

}  // namespace

void ExportTaxa(TaggedRun& run) {
    const Turns& turns = run.tools.turns;
    const AllTaxa all(run);
    all.FillParentTsn(run.tools);
    if (turns.Canceled()) return;
    if (!all.Root()) throw ExportError("No current record.");
    run.listed = run.filtered ? run.taxa.Listed() : run.existing;
    TaxonLines lines(run, *all.Root());
    if (turns.Canceled()) return;
    lines.WriteRoot();
    lines.WriteOthers();
}

}  // namespace quillon::exporting
