#include "validation/taxon_look_ups.h"

#include <fmt/format.h>

#include <algorithm>

#include "core/text.h"
#include "core/vocabulary.h"
#include "validation/dates.h"

namespace quillon::validation {

namespace {

using store::RowStream;

constexpr std::string_view kTaxa = "SELECT qb_id, rank_id, usage FROM qb_taxonomic_units WHERE True{};";
constexpr std::string_view kParents = "SELECT parent_qb_id FROM qb_taxonomic_units WHERE True{};";
constexpr std::string_view kAuthors =
    "SELECT qb_taxon_author_id, taxon_author FROM qb_taxon_authors_lookup WHERE True{};";
constexpr std::string_view kSynonymLinks =
    "SELECT qb_id, qb_id_accepted FROM qb_synonym_links WHERE True{} ORDER BY qb_id, qb_id_accepted;";
// Within a taxon the engine walks the key, which is the order of the documents' ids.
constexpr std::string_view kReferenceLinks =
    "SELECT qb_id, qb_documentation_id_prefix, qb_documentation_id, original_desc_ind FROM "
    "qb_reference_links WHERE True{} ORDER BY qb_id;";
constexpr std::string_view kPublications =
    "SELECT qb_publication_id, actual_pub_date, publication_id_prefix FROM qb_publications "
    "WHERE publication_id_prefix Is Not Null{};";
constexpr std::string_view kExperts =
    "SELECT qb_expert_id FROM qb_experts WHERE expert_id_prefix Is Not Null{};";
constexpr std::string_view kOtherSources =
    "SELECT qb_source_id FROM qb_other_sources WHERE source_id_prefix Is Not Null{};";
constexpr std::string_view kPublication =
    "PARAMETERS theprefix Text, theid Long, thetaxon Long; SELECT thetaxon AS qb_id, True AS "
    "original_desc_ind, "
    "qb_publication_id, publication_name, title, actual_pub_date FROM qb_publications "
    "WHERE StrComp(publication_id_prefix, theprefix, 0) = 0 AND qb_publication_id = theid;";

std::string With(std::string_view select, std::string_view condition) {
    return fmt::format(fmt::runtime(select), condition);
}

std::string Among(std::string_view column, const selection::IdSet* ids) {
    return ids == nullptr ? std::string() : selection::AndAmong(column, *ids);
}

// Of the taxa themselves, whose rows or links these are; empty when they are many.
std::string OfTaxa(const selection::SelectedTaxa& taxa) {
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
void ReadRows(store::Database& database, const std::string& select, const selection::Continue& goOn,
              const Read& read) {
    RowStream rows(database, select);
    while (rows.Next() && goOn()) read(rows);
}

// The parents of few taxa and the names that they are linked to; nothing for many, of which all are read.
std::string ParentsAndAccepted(store::Database& database, const selection::SelectedTaxa& taxa,
                               const selection::Continue& goOn) {
    const std::string ofTaxa = OfTaxa(taxa);
    if (ofTaxa.empty()) return {};
    selection::IdSet ids;
    const auto add = [&](std::size_t column) {
        return [&ids, column](const RowStream& row) { ids.Add(Id(row, column)); };
    };
    ReadRows(database, With(kParents, ofTaxa), goOn, add(0));
    ReadRows(database, With(kSynonymLinks, ofTaxa), goOn, add(1));
    return selection::AndAmong("qb_id", ids);
}

}  // namespace

TaxonTable::TaxonTable(store::Database& database, std::string_view among, const selection::Continue& goOn) {
    ReadRows(database, With(kTaxa, among), goOn, [this](const RowStream& row) {
        taxa_.Append({Id(row, 0), static_cast<std::int16_t>(row.Long(1)), !row.IsNull(1),
                      UsageIsAccepted(row.Text(2))});
    });
}

AuthorTable::AuthorTable(store::Database& database, std::string_view among, const selection::Continue& goOn) {
    ReadRows(database, With(kAuthors, among), goOn, [this](const RowStream& row) {
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

DocumentTable::DocumentTable(store::Database& database, const selection::IdSet* ids,
                             const selection::Continue& goOn) {
    ReadRows(
        database, With(kPublications, Among("qb_publication_id", ids)), goOn, [this](const RowStream& row) {
            PublicationFacts facts{Id(row, 0), ActualYear(row.Text(1)), {}};
            const std::string_view prefix = row.Text(2);
            std::copy_n(prefix.begin(), std::min(prefix.size(), facts.prefix.size()), facts.prefix.begin());
            publications_.Append(facts);
        });
    ReadRows(database, With(kExperts, Among("qb_expert_id", ids)), goOn,
             [this](const RowStream& row) { experts_.Append({Id(row, 0)}); });
    ReadRows(database, With(kOtherSources, Among("qb_source_id", ids)), goOn,
             [this](const RowStream& row) { otherSources_.Append({Id(row, 0)}); });
    publications_.Sort();
    experts_.Sort();
    otherSources_.Sort();
}

void DocumentTable::Resolve(std::string_view prefix, std::int64_t id, bool isOriginal,
                            TaxonReferences& references) const {
    if (IsPrefix(prefix, "PUB")) {
        for (const PublicationFacts& publication : publications_.FindAll(id))
            references.publications.push_back({&publication, isOriginal});
    } else if (IsPrefix(prefix, "EXP")) {
        references.hasExpert = references.hasExpert || experts_.Find(id) != nullptr;
    } else if (IsPrefix(prefix, "SRC")) {
        references.hasOtherSource = references.hasOtherSource || otherSources_.Find(id) != nullptr;
    }
}

TaxonLookUps::TaxonLookUps(store::Database& database, const selection::SelectedTaxa& taxa,
                           const selection::Continue& goOn)
    : taxa_(database, ParentsAndAccepted(database, taxa, goOn), goOn),
      authors_(database, Among("qb_taxon_author_id", taxa.All() ? nullptr : &taxa.Authors()), goOn),
      documents_(database, taxa.All() ? nullptr : &taxa.Documents().Ids(), goOn),
      synonymLinks_(database, With(kSynonymLinks, OfTaxa(taxa)), goOn),
      referenceLinks_(database, With(kReferenceLinks, OfTaxa(taxa)), goOn),
      publication_(database.CreateQueryDef("", kPublication)) {}

bool TaxonLookUps::MoveTo(std::int64_t qb_id) {
    synonymLinks_.MoveTo(qb_id);
    referenceLinks_.MoveTo(qb_id);
    return !synonymLinks_.Stopped() && !referenceLinks_.Stopped();
}

// As the query joins them: a link to no taxon gives no name.
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
