// The checks of the vernaculars and the jurisdictions.

#include <fmt/format.h>

#include <array>
#include <optional>

#include "core/names.h"
#include "core/text.h"
#include "validation/id_table.h"
#include "validation/keyed_walk.h"
#include "validation/table_checks.h"

namespace quillon::validation {

namespace {

using store::RowStream;

constexpr std::string_view kLinks =
    "SELECT qb_id, qb_documentation_id_prefix, qb_documentation_id, vernacular_name FROM qb_vern_ref_links "
    "WHERE True{} ORDER BY qb_id;";
// Every jurisdiction, with an origin or without: then each row of the walk is a turn.
constexpr std::string_view kTaxaOfJurisdictions =
    "SELECT qb_jurisdiction.qb_id AS of_taxon, unit_ind1, unit_name1, unit_ind2, unit_name2, unit_ind3, "
    "unit_name3, unit_ind4, unit_name4 FROM qb_jurisdiction INNER JOIN qb_taxonomic_units ON "
    "qb_jurisdiction.qb_id = qb_taxonomic_units.qb_id WHERE True{} ORDER BY qb_jurisdiction.qb_id;";

std::int32_t Id(const RowStream& rows, std::size_t column) {
    return static_cast<std::int32_t>(rows.Long(column));
}

// The names by which taxa have a reference of a vernacular, to a document that is there; the kind of a
// document is the prefix of the link, whatever its own is.
class ReferencedNames {
public:
    explicit ReferencedNames(const ValidationRun& run) {
        const std::string among =
            run.taxa.All() ? std::string() : selection::AndAmong("qb_id", run.taxa.Listed());
        ReadDocuments(run, among);
        RowStream links(run.database, fmt::format(fmt::runtime(kLinks), among));
        while (links.Next() && run.GoOn())
            if (!links.IsNull(3) && IsThere(links.Text(1), Id(links, 2))) Add(Id(links, 0), links.Text(3));
    }

    bool Has(std::int64_t qb_id, std::string_view vernacular_name) const {
        for (const Place& place : places_.FindAll(qb_id))
            if (std::string_view(names_).substr(place.begin, place.size) == vernacular_name) return true;
        return false;
    }

private:
    struct Kind {
        std::string_view prefix, table, id, own;
    };
    static constexpr std::array<Kind, 3> kKinds = {
        {{"PUB", "qb_publications", "qb_publication_id", "publication_id_prefix"},
         {"SRC", "qb_other_sources", "qb_source_id", "source_id_prefix"},
         {"EXP", "qb_experts", "qb_expert_id", "expert_id_prefix"}}};
    struct Place {
        std::int32_t id = 0;
        std::size_t begin = 0, size = 0;
    };

    // Those that the links of few taxa lead to, else all.
    void ReadDocuments(const ValidationRun& run, const std::string& amongTaxa) {
        selection::IdSet linked;
        if (!amongTaxa.empty()) {
            RowStream links(run.database, fmt::format(fmt::runtime(kLinks), amongTaxa));
            while (links.Next() && run.GoOn()) linked.Add(Id(links, 2));
        }
        for (std::size_t i = 0; i < kKinds.size(); ++i) {
            const std::string among =
                amongTaxa.empty() ? std::string() : selection::AndAmong(kKinds[i].id, linked);
            RowStream rows(run.database, fmt::format("SELECT {0} FROM {1} WHERE {2} Is Not Null{3};",
                                                     kKinds[i].id, kKinds[i].table, kKinds[i].own, among));
            while (rows.Next() && run.GoOn()) documents_[i].Add(Id(rows, 0));
        }
    }
    bool IsThere(std::string_view prefix, std::int32_t id) const {
        for (std::size_t i = 0; i < kKinds.size(); ++i)
            if (prefix == kKinds[i].prefix) return documents_[i].Has(id);
        for (std::size_t i = 0; i < kKinds.size(); ++i)
            if (EqualText(prefix, kKinds[i].prefix)) return documents_[i].Has(id);
        return false;
    }
    void Add(std::int32_t qb_id, std::string_view vernacular_name) {
        places_.Append({qb_id, names_.size(), vernacular_name.size()});
        names_ += vernacular_name;
    }

    std::array<selection::IdSet, 3> documents_;
    IdTable<Place> places_;
    std::string names_;
};

// The names of the taxa of jurisdictions, asked for in ascending qb_id. Nothing is read before the first is
// asked for.
class TaxonNames {
public:
    explicit TaxonNames(const ValidationRun& run) : run_(run) {}

    // Nothing when the user wants no more; empty when there is no such taxon.
    std::optional<std::string> Of(std::int64_t qb_id) {
        if (!walk_) Open();
        const bool found = walk_->MoveTo(qb_id);
        if (walk_->Stopped()) return std::nullopt;
        return found ? NameAt(walk_->Row()) : std::string();
    }

private:
    void Open() {
        const std::string among =
            run_.taxa.All() ? std::string() : selection::AndAmong("qb_jurisdiction.qb_id", run_.taxa.Ids());
        walk_.emplace(run_.database, fmt::format(fmt::runtime(kTaxaOfJurisdictions), among),
                      [this] { return run_.GoOn(); });
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

bool HasReference(const VernacularRow& row, const ReferencedNames& names) {
    return row.vernacular_name.IsText() && names.Has(row.qb_id.AsLong(), row.vernacular_name.Text());
}

}  // namespace

void ValidateVernaculars(const ValidationRun& run) {
    const ReferencedNames names(run);
    ForEachRow<VernacularRow>(run, "qb_vernaculars", [&](const VernacularRow& row) {
        if (row.language.IsNull())
            run.log.LogDocumentError(Rule::LanguageMissing, row,
                                     "     a language is required for a vernacular");
        if (row.approved_ind.IsNull()) return true;
        run.log.SetTaxon(IdOf(row.qb_id));
        if (row.approved_ind.AsBoolean() && !HasReference(row, names))
            run.log.LogDocumentError(Rule::VernacularReferenceMissing, row,
                                     "     a reference is required for an approved vernacular");
        return true;
    });
}

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
