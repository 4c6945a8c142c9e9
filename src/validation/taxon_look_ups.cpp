#include "validation/taxon_look_ups.h"

#include <algorithm>

#include "core/document_kinds.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "validation/dates.h"

namespace quillon::validation {

namespace {

using store::RowStream;

using Order = store::TableRows::Order;

constexpr std::string_view kPublication =
    "PARAMETERS theprefix Text, theid Long, thetaxon Long; SELECT thetaxon AS qb_id, True AS "
    "original_desc_ind, "
    "qb_publication_id, publication_name, title, actual_pub_date FROM qb_publications "
    "WHERE StrComp(publication_id_prefix, theprefix, 0) = 0 AND qb_publication_id = theid;";

store::TableRows Among(std::string_view column, const selection::IdSet* ids, Order order = Order::Key) {
    return ids == nullptr ? store::TableRows{order} : selection::RowsAmong(column, *ids, order);
}

// Rows or links of the selected taxa.
store::TableRows OfTaxa(const selection::SelectedTaxa& taxa) {
    return Among("qb_id", taxa.All() ? nullptr : &taxa.Ids());
}

std::int32_t ActualYear(std::string_view actual_pub_date) {
    const std::string_view year = YearText(actual_pub_date);
    return year.empty() ? kNoDateYear : ShortNumber(year).value_or(INT32_MAX);
}

bool IsPrefix(std::string_view prefix, std::string_view word) {
    return prefix == word || EqualText(prefix, word);
}

std::int32_t Id(const RowStream& rows, std::size_t column) {
    return static_cast<std::int32_t>(rows.Long(column));
}

template <typename Read>
void ReadRows(RowStream& rows, Turns turns, const Read& read) {
    while (rows.Next() && turns.Next()) read(rows);
}

// The rows of the parents of few taxa and of the names that they are linked to; for many taxa, all rows.
store::TableRows ParentsAndAccepted(store::Database& database, const selection::SelectedTaxa& taxa,
                                    Turns turns) {
    const store::TableRows ofTaxa = OfTaxa(taxa);
    if (ofTaxa.column.empty()) return {};
    selection::IdSet ids;
    RowStream parents(database, "qb_taxonomic_units", {"parent_qb_id"}, ofTaxa);
    ReadRows(parents, turns, [&](const RowStream& row) { ids.Add(Id(row, 0)); });
    RowStream links(database, "qb_synonym_links", {"qb_id_accepted"}, ofTaxa);
    ReadRows(links, turns, [&](const RowStream& row) { ids.Add(Id(row, 0)); });
    return selection::RowsAmong("qb_id", ids);
}

}  // namespace

TaxonTable::TaxonTable(store::Database& database, const store::TableRows& among, Turns turns) {
    RowStream taxa(database, "qb_taxonomic_units", {"qb_id", "rank_id", "usage"}, among);
    ReadRows(taxa, turns, [this](const RowStream& row) {
        taxa_.Append({Id(row, 0), static_cast<std::int16_t>(row.Long(1)), !row.IsNull(1),
                      UsageIsAccepted(row.Text(2))});
    });
}

AuthorTable::AuthorTable(store::Database& database, const store::TableRows& among, Turns turns) {
    RowStream authors(database, "qb_taxon_authors_lookup", {"qb_taxon_author_id", "taxon_author"}, among);
    ReadRows(authors, turns, [this](const RowStream& row) {
        const std::string_view text = row.Text(1);
        places_.Append({Id(row, 0), static_cast<std::uint32_t>(texts_.size()), YearFromAuthor(text)});
        texts_ += text;
    });
}

AuthorFacts AuthorTable::Find(std::int64_t qb_taxon_author_id) const {
    const Place* place = places_.Find(qb_taxon_author_id);
    if (place == nullptr) return {{}, kNoYear};
    const Place* next = places_.Next(place);
    const std::size_t end = next == nullptr ? texts_.size() : next->begin;
    return {std::string_view(texts_).substr(place->begin, end - place->begin), place->year};
}

DocumentTable::DocumentTable(store::Database& database, const selection::IdSet* ids, Turns turns) {
    RowStream publications(database, kPublications.table,
                           {kPublications.idColumn, "actual_pub_date", kPublications.prefixColumn},
                           Among(kPublications.idColumn, ids, Order::Collated));
    ReadRows(publications, turns, [this](const RowStream& row) {
        PublicationFacts facts{Id(row, 0), ActualYear(row.Text(1)), {}};
        const std::string_view prefix = row.Text(2);
        std::copy_n(prefix.begin(), std::min(prefix.size(), facts.prefix.size()), facts.prefix.begin());
        publications_.Append(facts);
    });
    RowStream experts(database, kExperts.table, {kExperts.idColumn},
                      Among(kExperts.idColumn, ids, Order::Any));
    ReadRows(experts, turns, [this](const RowStream& row) { experts_.Append({Id(row, 0)}); });
    RowStream sources(database, kOtherSources.table, {kOtherSources.idColumn},
                      Among(kOtherSources.idColumn, ids, Order::Any));
    ReadRows(sources, turns, [this](const RowStream& row) { otherSources_.Append({Id(row, 0)}); });
    publications_.Sort();
    experts_.Sort();
    otherSources_.Sort();
}

void DocumentTable::Resolve(std::string_view prefix, std::int64_t id, bool isOriginal,
                            TaxonReferences& references) const {
    if (IsPrefix(prefix, kPublications.prefix)) {
        for (const PublicationFacts& publication : publications_.FindAll(id))
            references.publications.push_back({&publication, isOriginal});
    } else if (IsPrefix(prefix, kExperts.prefix)) {
        references.hasExpert = references.hasExpert || experts_.Find(id) != nullptr;
    } else if (IsPrefix(prefix, kOtherSources.prefix)) {
        references.hasOtherSource = references.hasOtherSource || otherSources_.Find(id) != nullptr;
    }
}

// Within a taxon the links are in key order, which is the order of document ids.
TaxonLookUps::TaxonLookUps(store::Database& database, const selection::SelectedTaxa& taxa, Turns turns)
    : taxa_(database, ParentsAndAccepted(database, taxa, turns), turns),
      authors_(database, Among("qb_taxon_author_id", taxa.All() ? nullptr : &taxa.Authors()), turns),
      documents_(database, taxa.All() ? nullptr : &taxa.Documents().Ids(), turns),
      synonymLinks_(database, "qb_synonym_links", {"qb_id", "qb_id_accepted"}, OfTaxa(taxa), turns),
      referenceLinks_(database, "qb_reference_links",
                      {"qb_id", "qb_documentation_id_prefix", "qb_documentation_id", "original_desc_ind"},
                      OfTaxa(taxa), turns),
      publication_(database.CreateQueryDef("", kPublication)) {}

bool TaxonLookUps::MoveTo(std::int64_t qb_id) {
    synonymLinks_.MoveTo(qb_id);
    referenceLinks_.MoveTo(qb_id);
    return !synonymLinks_.Stopped() && !referenceLinks_.Stopped();
}

// Like the join of the query: a link to a missing taxon returns no name.
std::vector<AcceptedLink> TaxonLookUps::AcceptedNames(std::int64_t qb_id) {
    std::vector<AcceptedLink> links;
    for (bool found = synonymLinks_.MoveTo(qb_id); found; found = synonymLinks_.MoveNext()) {
        const TaxonFacts* accepted = Taxon(synonymLinks_.Row().Long(1));
        if (accepted != nullptr) links.push_back({accepted->id, true, accepted->isUsable});
    }
    return links;
}

const TaxonReferences& TaxonLookUps::References(std::int64_t qb_id) {
    references_.publications.clear();
    references_.hasExpert = false;
    references_.hasOtherSource = false;
    for (bool found = referenceLinks_.MoveTo(qb_id); found; found = referenceLinks_.MoveNext()) {
        const RowStream& row = referenceLinks_.Row();
        documents_.Resolve(row.Text(1), row.Long(2), row.Long(3) != 0, references_);
    }
    return references_;
}

TaxonPublicationRow TaxonLookUps::Publication(std::int64_t qb_id, const PublicationFacts& publication) {
    const std::string prefix(publication.prefix.begin(),
                             std::find(publication.prefix.begin(), publication.prefix.end(), '\0'));
    publication_.Set("theprefix", prefix).Set("theid", publication.id).Set("thetaxon", qb_id);
    const auto rows = publication_.OpenRecordset(store::RecordsetType::ForwardOnly);
    TaxonPublicationRow row;
    RowReader<TaxonPublicationRow>(*rows).Read(row);
    return row;
}

}  // namespace quillon::validation
