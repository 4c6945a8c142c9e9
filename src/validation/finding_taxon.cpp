#include "validation/finding_taxon.h"

namespace quillon::validation {

namespace {

constexpr std::string_view kTaxonOfAuthor =
    "PARAMETERS theid Long; SELECT min(qb_id) FROM qb_taxonomic_units WHERE qb_taxon_author_id = theid;";
// With the condition of the index ~document.
constexpr std::string_view kTaxonOfDocument =
    "PARAMETERS theid Long, theprefix Text; SELECT min(qb_id) FROM qb_reference_links "
    "WHERE qb_documentation_id = theid AND qb_documentation_id_prefix = theprefix AND "
    "qb_documentation_id_prefix Is Not Null;";
constexpr std::string_view kTaxonOfVernacularDocument =
    "PARAMETERS theid Long, theprefix Text; SELECT min(qb_id) FROM qb_vern_ref_links "
    "WHERE qb_documentation_id = theid AND qb_documentation_id_prefix = theprefix AND "
    "qb_documentation_id_prefix Is Not Null;";

std::optional<int> FirstTaxon(store::QueryDef& query) {
    const auto row = query.CreateSnapshot();
    if (row->Eof() || row->At(0).IsNull()) return std::nullopt;
    return static_cast<int>(row->At(0).AsLong());
}

std::optional<int> TaxonOfDocument(store::Database& database, const FindingMark& mark) {
    for (const std::string_view select : {kTaxonOfDocument, kTaxonOfVernacularDocument}) {
        store::QueryDef query = database.CreateQueryDef("", select);
        if (const auto qb_id = FirstTaxon(query.Set("theid", mark.id).Set("theprefix", mark.Prefix())))
            return qb_id;
    }
    return std::nullopt;
}

}  // namespace

std::optional<int> TaxonOfFinding(store::Database& database, const FindingMark& mark) {
    switch (mark.kind) {
        case RecordKind::Author: {
            store::QueryDef query = database.CreateQueryDef("", kTaxonOfAuthor);
            return FirstTaxon(query.Set("theid", mark.id));
        }
        case RecordKind::Expert:
        case RecordKind::OtherSource:
        case RecordKind::Publication:
            return TaxonOfDocument(database, mark);
        default:
            return mark.id;
    }
}

}  // namespace quillon::validation
