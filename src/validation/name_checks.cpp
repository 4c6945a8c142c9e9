// The checks of the vernaculars and the jurisdictions.

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "core/names.h"
#include "core/text.h"
#include "validation/keyed_walk.h"
#include "validation/table_checks.h"

namespace quillon::validation {

namespace {

using store::RowStream;

// Every jurisdiction, with an origin or without: then each row of the walk is a turn.
constexpr std::string_view kTaxaOfJurisdictions =
    "SELECT qb_jurisdiction.qb_id AS of_taxon, unit_ind1, unit_name1, unit_ind2, unit_name2, unit_ind3, "
    "unit_name3, unit_ind4, unit_name4 FROM qb_jurisdiction INNER JOIN qb_taxonomic_units ON "
    "qb_jurisdiction.qb_id = qb_taxonomic_units.qb_id ORDER BY qb_jurisdiction.qb_id;";

const std::vector<std::string_view> kNameColumns = {"qb_id",      "unit_ind1",  "unit_name1",
                                                    "unit_ind2",  "unit_name2", "unit_ind3",
                                                    "unit_name3", "unit_ind4",  "unit_name4"};

std::int32_t Id(const RowStream& rows, std::size_t column) {
    return static_cast<std::int32_t>(rows.Long(column));
}

// The names by which taxa have a reference of a vernacular, to a document that is there; the kind of a
// document is the prefix of the link, whatever its own is.
class ReferencedNames {
public:
    explicit ReferencedNames(const ValidationRun& run) {
        const store::TableRows ofTaxa =
            run.taxa.All() ? store::TableRows() : selection::RowsAmong("qb_id", run.taxa.Listed());
        ReadDocuments(run, ofTaxa);
        RowStream links(run.database, "qb_vern_ref_links",
                        {"qb_id", "qb_documentation_id_prefix", "qb_documentation_id", "vernacular_name"},
                        ofTaxa);
        while (links.Next() && run.GoOn())
            if (!links.IsNull(3) && IsThere(links.Text(1), Id(links, 2))) Add(Id(links, 0), links.Text(3));
        std::sort(places_.begin(), places_.end(),
                  [this](const Place& left, const Place& right) { return KeyOf(left) < KeyOf(right); });
    }

    bool Has(std::int32_t qb_id, std::string_view vernacular_name) const {
        const Key wanted(qb_id, vernacular_name);
        const auto found =
            std::lower_bound(places_.begin(), places_.end(), wanted,
                             [this](const Place& place, const Key& key) { return KeyOf(place) < key; });
        return found != places_.end() && KeyOf(*found) == wanted;
    }

private:
    struct Kind {
        std::string_view prefix, table, id;
    };
    static constexpr std::array<Kind, 3> kKinds = {{{"PUB", "qb_publications", "qb_publication_id"},
                                                    {"SRC", "qb_other_sources", "qb_source_id"},
                                                    {"EXP", "qb_experts", "qb_expert_id"}}};
    struct Place {
        std::int32_t id = 0;
        std::size_t begin = 0, size = 0;
    };

    // Those that the links of few taxa lead to, else all.
    void ReadDocuments(const ValidationRun& run, const store::TableRows& ofTaxa) {
        selection::IdSet linked;
        if (!ofTaxa.column.empty()) {
            RowStream links(run.database, "qb_vern_ref_links", {"qb_documentation_id"}, ofTaxa);
            while (links.Next() && run.GoOn()) linked.Add(Id(links, 0));
        }
        for (std::size_t i = 0; i < kKinds.size(); ++i) {
            store::TableRows among{store::TableRows::Order::Any};
            if (!ofTaxa.column.empty()) among = selection::RowsAmong(kKinds[i].id, linked, among.order);
            RowStream rows(run.database, kKinds[i].table, {kKinds[i].id}, among);
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
        places_.push_back({qb_id, names_.size(), vernacular_name.size()});
        names_ += vernacular_name;
    }
    using Key = std::pair<std::int32_t, std::string_view>;
    Key KeyOf(const Place& place) const {
        return {place.id, std::string_view(names_).substr(place.begin, place.size)};
    }

    std::array<selection::IdSet, 3> documents_;
    std::vector<Place> places_;  // by taxon and name
    std::string names_;
};

// The names of the taxa of jurisdictions, asked for in ascending qb_id. Nothing is read before the first is
// asked for.
class TaxonNames {
public:
    explicit TaxonNames(const ValidationRun& run) : run_(run) {}

    // Nothing when the run is canceled; empty when there is no such taxon.
    std::optional<std::string> Of(std::int64_t qb_id) {
        if (!walk_) Open();
        const bool found = walk_->MoveTo(qb_id);
        if (walk_->Stopped()) return std::nullopt;
        return found ? NameAt(walk_->Row()) : std::string();
    }

private:
    // Of few taxa the rows themselves; of many the taxa with jurisdictions.
    void Open() {
        store::TableRows rows;
        if (!run_.taxa.All()) rows = selection::RowsAmong("qb_id", run_.taxa.Ids());
        const selection::Continue goOn = [this] { return run_.GoOn(); };
        if (rows.column.empty())
            walk_.emplace(run_.database, kTaxaOfJurisdictions, goOn);
        else
            walk_.emplace(run_.database, "qb_taxonomic_units", kNameColumns, rows, goOn);
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
    return row.vernacular_name.IsText() && names.Has(IdOf(row.qb_id), row.vernacular_name.Text());
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
