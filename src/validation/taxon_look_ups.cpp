#include "validation/taxon_look_ups.h"

#include <fmt/format.h>

#include <algorithm>

#include "core/text.h"
#include "core/vocabulary.h"
#include "validation/dates.h"
#include "validation/record_filter.h"

namespace quillon::validation {

namespace {

constexpr std::string_view kTaxa = "SELECT qb_id, rank_id, usage FROM qb_taxonomic_units{};";
constexpr std::string_view kParentsAndAccepted =
    " WHERE (True{}) OR qb_id IN (SELECT qb_id_accepted FROM qb_synonym_links WHERE True{})";
constexpr std::string_view kAuthors =
    "SELECT qb_taxon_author_id, taxon_author FROM qb_taxon_authors_lookup WHERE True{};";
constexpr std::string_view kSynonymLinks =
    "SELECT qb_id, qb_id_accepted FROM qb_synonym_links WHERE True{} ORDER BY qb_id, qb_id_accepted;";
// Within a taxon the engine walks the key, which is the order of the documents' ids.
constexpr std::string_view kReferenceLinks =
    "SELECT qb_id, qb_documentation_id_prefix, qb_documentation_id, original_desc_ind FROM "
    "qb_reference_links "
    "WHERE True{} ORDER BY qb_id;";
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

std::string With(std::string_view select, const std::string& condition) {
    return fmt::format(fmt::runtime(select), condition);
}

std::string TaxaSelect(std::string_view filter) {
    if (filter == kNoFilter) return With(kTaxa, {});
    return With(kTaxa,
                fmt::format(fmt::runtime(kParentsAndAccepted), AndAmongTaxa("qb_id", "parent_qb_id", filter),
                            AndAmongTaxa("qb_id", "qb_id", filter)));
}

// The documents that the taxa under the filter refer to.
std::string DocumentSelect(std::string_view select, std::string_view id, std::string_view filter) {
    if (filter == kNoFilter) return With(select, {});
    return With(select,
                fmt::format(" AND {} IN (SELECT qb_documentation_id FROM qb_reference_links WHERE True{})",
                            id, AndAmongTaxa("qb_id", "qb_id", filter)));
}

std::int32_t ActualYear(const Value& actual_pub_date) {
    if (!actual_pub_date.IsText()) return kNoDateYear;
    const std::string_view year = YearText(actual_pub_date.Text());
    return year.empty() ? kNoDateYear : ShortNumber(year).value_or(INT32_MAX);
}

bool IsUsable(const Value& usage) {
    return usage.IsText() && UsageIsAccepted(usage.Text());
}

bool IsPrefix(std::string_view prefix, std::string_view word) {
    return prefix == word || EqualText(prefix, word);
}

template <typename Read>
void ReadRows(store::Database& database, std::string_view select, const Continue& goOn, const Read& read) {
    const auto rows = database.OpenRecordset(select, store::RecordsetType::ForwardOnly);
    for (; !rows->Eof() && goOn(); rows->MoveNext()) read(*rows);
}

}  // namespace

TaxonTable::TaxonTable(store::Database& database, std::string_view filter, const Continue& goOn) {
    ReadRows(database, TaxaSelect(filter), goOn, [this](const store::Recordset& row) {
        const Value rank_id = row.At(1);
        taxa_.Append({IdOf(row.At(0)), static_cast<std::int16_t>(rank_id.AsLong()), !rank_id.IsNull(),
                      IsUsable(row.At(2))});
    });
}

AuthorTable::AuthorTable(store::Database& database, std::string_view filter, const Continue& goOn) {
    const std::string select =
        With(kAuthors, AndAmongTaxa("qb_taxon_author_id", "qb_taxon_author_id", filter));
    ReadRows(database, select, goOn, [this](const store::Recordset& row) {
        const Value taxon_author = row.At(1);
        const std::string_view text = taxon_author.IsText() ? std::string_view(taxon_author.Text()) : "";
        places_.Append({IdOf(row.At(0)), static_cast<std::uint32_t>(texts_.size()), YearFromAuthor(text)});
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

DocumentTable::DocumentTable(store::Database& database, std::string_view filter, const Continue& goOn) {
    ReadRows(database, DocumentSelect(kPublications, "qb_publication_id", filter), goOn,
             [this](const store::Recordset& row) {
                 PublicationFacts facts{IdOf(row.At(0)), ActualYear(row.At(1)), {}};
                 const std::string prefix = row.At(2).AsText();
                 std::copy_n(prefix.begin(), std::min(prefix.size(), facts.prefix.size()),
                             facts.prefix.begin());
                 publications_.Append(facts);
             });
    ReadRows(database, DocumentSelect(kExperts, "qb_expert_id", filter), goOn,
             [this](const store::Recordset& row) { experts_.Append({IdOf(row.At(0))}); });
    ReadRows(database, DocumentSelect(kOtherSources, "qb_source_id", filter), goOn,
             [this](const store::Recordset& row) { otherSources_.Append({IdOf(row.At(0))}); });
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

TaxonLookUps::TaxonLookUps(store::Database& database, std::string_view filter, const Continue& goOn)
    : taxa_(database, filter, goOn),
      authors_(database, filter, goOn),
      documents_(database, filter, goOn),
      synonymLinks_(database, With(kSynonymLinks, AndAmongTaxa("qb_id", "qb_id", filter))),
      referenceLinks_(database, With(kReferenceLinks, AndAmongTaxa("qb_id", "qb_id", filter))),
      publication_(database.CreateQueryDef("", kPublication)) {}

// As the query joins them: a link to no taxon gives no name.
std::vector<AcceptedLink> TaxonLookUps::AcceptedNames(std::int64_t qb_id) {
    std::vector<AcceptedLink> links;
    for (bool found = synonymLinks_.MoveTo(qb_id); found; found = synonymLinks_.MoveNext()) {
        const TaxonFacts* accepted = Taxon(synonymLinks_.Row().At(1).AsLong());
        if (accepted != nullptr) links.push_back({accepted->id, true, accepted->isUsable});
    }
    return links;
}

const TaxonReferences& TaxonLookUps::References(std::int64_t qb_id) {
    references_.publications.clear();
    references_.hasExpert = false;
    references_.hasOtherSource = false;
    for (bool found = referenceLinks_.MoveTo(qb_id); found; found = referenceLinks_.MoveNext()) {
        const store::Recordset& row = referenceLinks_.Row();
        const Value prefix = row.At(1);
        documents_.Resolve(prefix.IsText() ? std::string_view(prefix.Text()) : "", row.At(2).AsLong(),
                           row.At(3).AsBoolean(), references_);
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
