// The check of the vernaculars: an approved one needs a reference for its name.

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "core/document_kinds.h"
#include "core/text.h"
#include "validation/table_checks.h"

namespace quillon::validation {

namespace {

using store::RowStream;

std::int32_t Id(const RowStream& rows, std::size_t column) {
    return static_cast<std::int32_t>(rows.Long(column));
}

// The vernacular names for which taxa have a reference to an existing document. The prefix of the link
// determines the kind of the document, whatever the document's prefix is.
class ReferencedNames {
public:
    explicit ReferencedNames(const ValidationRun& run) {
        const store::TableRows ofTaxa =
            run.taxa.All() ? store::TableRows() : selection::RowsAmong("qb_id", run.taxa.Listed());
        ReadDocuments(run, ofTaxa);
        RowStream links(run.database, "qb_vern_ref_links",
                        {"qb_id", "qb_documentation_id_prefix", "qb_documentation_id", "vernacular_name"},
                        ofTaxa);
        while (links.Next() && run.turns.Next())
            if (!links.IsNull(3) && IsThere(links.Text(1), Id(links, 2))) Add(Id(links, 0), links.Text(3));
        SortNamesOfTaxon();
    }

    bool Has(std::int32_t qb_id, std::string_view vernacular_name) const {
        const Key wanted(qb_id, vernacular_name);
        const auto found =
            std::lower_bound(places_.begin(), places_.end(), wanted,
                             [this](const Place& place, const Key& key) { return KeyOf(place) < key; });
        return found != places_.end() && KeyOf(*found) == wanted;
    }

private:
    struct Place {
        std::int32_t id = 0;
        std::size_t begin = 0, size = 0;
    };

    // Reads the documents linked from few taxa, or all documents.
    void ReadDocuments(const ValidationRun& run, const store::TableRows& ofTaxa) {
        selection::IdSet linked;
        if (!ofTaxa.column.empty()) {
            RowStream links(run.database, "qb_vern_ref_links", {"qb_documentation_id"}, ofTaxa);
            while (links.Next() && run.turns.Next()) linked.Add(Id(links, 0));
        }
        for (std::size_t i = 0; i < kDocumentKinds.size(); ++i) {
            const DocumentKind& kind = *kDocumentKinds[i];
            store::TableRows among{store::TableRows::Order::Any};
            if (!ofTaxa.column.empty()) among = selection::RowsAmong(kind.idColumn, linked, among.order);
            RowStream rows(run.database, kind.table, {kind.idColumn}, among);
            while (rows.Next() && run.turns.Next()) documents_[i].Add(Id(rows, 0));
        }
    }
    bool IsThere(std::string_view prefix, std::int32_t id) const {
        for (std::size_t i = 0; i < kDocumentKinds.size(); ++i)
            if (prefix == kDocumentKinds[i]->prefix) return documents_[i].Has(id);
        for (std::size_t i = 0; i < kDocumentKinds.size(); ++i)
            if (EqualText(prefix, kDocumentKinds[i]->prefix)) return documents_[i].Has(id);
        return false;
    }
    void Add(std::int32_t qb_id, std::string_view vernacular_name) {
        if (!places_.empty() && places_.back().id != qb_id) SortNamesOfTaxon();
        places_.push_back({qb_id, names_.size(), vernacular_name.size()});
        names_ += vernacular_name;
    }
    // The links are sorted by taxon, so it is enough to sort the names of each taxon.
    void SortNamesOfTaxon() {
        std::sort(places_.begin() + static_cast<std::ptrdiff_t>(sorted_), places_.end(),
                  [this](const Place& left, const Place& right) { return KeyOf(left) < KeyOf(right); });
        sorted_ = places_.size();
    }
    using Key = std::pair<std::int32_t, std::string_view>;
    Key KeyOf(const Place& place) const {
        return {place.id, std::string_view(names_).substr(place.begin, place.size)};
    }

    std::array<selection::IdSet, 3> documents_;
    std::vector<Place> places_;  // by taxon and name
    std::size_t sorted_ = 0;     // number of sorted places
    std::string names_;
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

}  // namespace quillon::validation
