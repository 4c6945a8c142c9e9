// Checks the jurisdictions, whose findings name the taxon.

#include <fmt/format.h>

#include <optional>
#include <vector>

#include "core/names.h"
#include "validation/keyed_walk.h"
#include "validation/table_checks.h"

namespace quillon::validation {

namespace {

using store::RowStream;

// All jurisdictions, also those without an origin, so that each row is a turn.
constexpr std::string_view kTaxaOfJurisdictions =
    "SELECT qb_jurisdiction.qb_id AS of_taxon, unit_ind1, unit_name1, unit_ind2, unit_name2, unit_ind3, "
    "unit_name3, unit_ind4, unit_name4 FROM qb_jurisdiction INNER JOIN qb_taxonomic_units ON "
    "qb_jurisdiction.qb_id = qb_taxonomic_units.qb_id ORDER BY qb_jurisdiction.qb_id;";

const std::vector<std::string_view> kNameColumns = {"qb_id",      "unit_ind1",  "unit_name1",
                                                    "unit_ind2",  "unit_name2", "unit_ind3",
                                                    "unit_name3", "unit_ind4",  "unit_name4"};

// The names of the taxa of jurisdictions, for calls in ascending qb_id. Reads nothing before the first call.
class TaxonNames {
public:
    explicit TaxonNames(const ValidationRun& run) : run_(run) {}

    // std::nullopt when the run is canceled; an empty text when there is no such taxon.
    std::optional<std::string> Of(std::int64_t qb_id) {
        if (!walk_) Open();
        const bool found = walk_->MoveTo(qb_id);
        if (walk_->Stopped()) return std::nullopt;
        return found ? NameAt(walk_->Row()) : std::string();
    }

private:
    // Reads the rows of few taxa by key; for many, all taxa with jurisdictions.
    void Open() {
        store::TableRows rows;
        if (!run_.taxa.All()) rows = selection::RowsAmong("qb_id", run_.taxa.Ids());
        if (rows.column.empty())
            walk_.emplace(run_.database, kTaxaOfJurisdictions, run_.turns);
        else
            walk_.emplace(run_.database, "qb_taxonomic_units", kNameColumns, rows, run_.turns);
    }
    static std::string NameAt(const RowStream& row) {
        const auto unit = [&](std::size_t column) {
            return row.IsNull(column) ? Value() : Value(row.Text(column));
        };
        return BuildSciName({unit(1), unit(2), unit(3), unit(4), unit(5), unit(6), unit(7), unit(8)});
    }

    const ValidationRun& run_;
    std::optional<KeyedWalk> walk_;
};

}  // namespace

void ValidateJurisdictions(const ValidationRun& run) {
    TaxonNames names(run);
    ForEachRow<JurisdictionRow>(run, "qb_jurisdiction", [&](JurisdictionRow& row) {
        if (!row.origin.IsNull()) return true;
        run.log.SetTaxon(IdOf(row.qb_id));
        const auto name = names.Of(row.qb_id.AsLong());
        if (!name) return false;
        row.taxonName = *name;
        run.log.LogDocumentError(
            Rule::OriginMissing, row,
            fmt::format("     origin is required for jurisdiction '{}'", row.jurisdiction_value.AsText()));
        return true;
    });
}

}  // namespace quillon::validation
