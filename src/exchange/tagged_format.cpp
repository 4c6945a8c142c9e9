#include "exchange/tagged_format.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "core/document_kinds.h"
#include "core/text.h"

namespace quillon::exchange {

namespace {

using enum FieldForm;

// clang-format off
constexpr FieldLayout kTaxonFields[] = {
    {"qb_id", Number}, {"tsn", Number},
    {"unit_ind1", Text}, {"unit_name1", Text}, {"unit_ind2", Text}, {"unit_name2", Text},
    {"unit_ind3", Text}, {"unit_name3", Text}, {"unit_ind4", Text}, {"unit_name4", Text},
    {"unnamed_taxon_ind", Text}, {"usage", Text}, {"unacceptability_reason", Text},
    {"taxonomic_credibility_rating", Text}, {"taxonomic_completeness_rating", Text},
    {"currency_rating", Text},
    {"phylo_sort_sequence", Number}, {"initial_time_stamp", Text},
    {"parent_tsn", Number}, {"parent_qb_id", Number},
    {"taxon_author_id", Number}, {"qb_taxon_author_id", Number}, {"hybrid_author_id", Number},
    {"kingdom_id", Number}, {"rank_id", Number}, {"uncertain_parent_ind", YesNo, true},
};
constexpr FieldLayout kAuthorFields[] = {
    {"qb_taxon_author_id", Number}, {"taxon_author_id", Number}, {"taxon_author", Text},
    {"kingdom_id", Number},
};
constexpr FieldLayout kNodcFields[] = {{"nodc_id", Text}, {"tsn", Number}, {"qb_id", Number}};
constexpr FieldLayout kVernacularFields[] = {
    {"qb_id", Number}, {"qb_vern_id", Number}, {"vern_id", Number}, {"vernacular_name", Text},
    {"tsn", Number},
    {"language", Text}, {"approved_ind", YesNo},
};
constexpr FieldLayout kSynonymFields[] = {
    {"qb_id", Number}, {"qb_id_accepted", Number}, {"tsn", Number}, {"tsn_accepted", Number},
};
constexpr FieldLayout kDivisionFields[] = {{"qb_id", Number}, {"geographic_value", Text}, {"tsn", Number}};
constexpr FieldLayout kJurisdictionFields[] = {
    {"qb_id", Number}, {"jurisdiction_value", Text}, {"origin", Text}, {"tsn", Number},
};
constexpr FieldLayout kReferenceFields[] = {
    {"qb_id", Number}, {"qb_documentation_id_prefix", Text}, {"qb_documentation_id", Number}, {"tsn", Number},
    {"qb_documentation_id_prefix", Text}, {"documentation_id", Number}, {"original_desc_ind", YesNo},
    {"initial_orva_desc_ind", YesNo}, {"qb_change_track_id", Number}, {"vernacular_name", Text},
};
constexpr FieldLayout kPublicationFields[] = {
    {"publication_id_prefix", Text}, {"qb_publication_id", Number}, {"publication_id", Number},
    {"reference_author", Text}, {"title", Text}, {"publication_name", Text}, {"listed_pub_date", Date},
    {"actual_pub_date", Date}, {"publisher", Text}, {"pub_place", Text}, {"isbn", Text}, {"issn", Text},
    {"pages", Text}, {"pub_comment", Text},
};
constexpr FieldLayout kExpertFields[] = {
    {"expert_id_prefix", Text}, {"qb_expert_id", Number}, {"expert_id", Number}, {"expert", Text},
    {"exp_comment", Text},
};
constexpr FieldLayout kSourceFields[] = {
    {"source_id_prefix", Text}, {"qb_source_id", Number}, {"source_id", Number}, {"source_type", Text},
    {"source", Text}, {"version", Text}, {"acquisition_date", Date}, {"source_comment", Text},
};
constexpr FieldLayout kVernReferenceFields[] = {
    {"qb_id", Number}, {"qb_vern_id", Number}, {"vern_id", Number}, {"qb_documentation_id_prefix", Text},
    {"qb_documentation_id", Number}, {"tsn", Number}, {"qb_documentation_id_prefix", Text},
    {"documentation_id", Number},
};
constexpr FieldLayout kCommentLinkFields[] = {
    {"qb_id", Number}, {"qb_comment_id", Number}, {"tsn", Number}, {"comment_id", Number},
};
constexpr FieldLayout kCommentFields[] = {
    {"qb_comment_id", Number}, {"comment_id", Number}, {"commentator", Text}, {"comment_detail", Text},
    {"comment_time_stamp", Stamp},
};
constexpr FieldLayout kChangeTrackFields[] = {
    {"qb_change_track_id", Number}, {"change_track_id", Number}, {"old_tsn", Number}, {"change_reason", Text},
    {"change_initiator", Text}, {"change_reviewer", Text}, {"change_certifier", Text},
    {"change_time_stamp", Text},
    {"tsn", Number}, {"qb_id", Number},
};
constexpr FieldLayout kChangeOperationFields[] = {
    {"qb_change_track_id", Number}, {"chg_op_id", Number}, {"change_track_id", Number},
};
constexpr FieldLayout kChangeCommentFields[] = {
    {"qb_change_track_id", Number}, {"change_track_id", Number}, {"chg_cmt_id", Number},
    {"change_detail", Text},
};
constexpr FieldLayout kCommentKeys[] = {{"comment_id", Number}};
constexpr FieldLayout kCommentLinkKeys[] = {{"tsn", Number}, {"comment_id", Number}};
constexpr FieldLayout kExpertKeys[] = {{"expert_id_prefix", Text}, {"expert_id", Number}};
constexpr FieldLayout kDivisionKeys[] = {{"tsn", Number}, {"geographic_value", Text}};
constexpr FieldLayout kJurisdictionKeys[] = {{"tsn", Number}, {"jurisdiction_value", Text}};
constexpr FieldLayout kSourceKeys[] = {{"source_id_prefix", Text}, {"source_id", Number}};
constexpr FieldLayout kPublicationKeys[] = {{"publication_id_prefix", Text}, {"publication_id", Number}};
constexpr FieldLayout kReferenceKeys[] = {
    {"documentation_id_prefix", Text}, {"documentation_id", Number}, {"tsn", Number},
};
constexpr FieldLayout kSynonymKeys[] = {{"tsn", Number}, {"tsn_accepted", Number}};
constexpr FieldLayout kAuthorKeys[] = {{"taxon_author_id", Number}, {"kingdom_id", Number}};
constexpr FieldLayout kVernacularKeys[] = {{"tsn", Number}, {"vern_id", Number, true}};
constexpr FieldLayout kVernReferenceKeys[] = {
    {"documentation_id_prefix", Text}, {"documentation_id", Number}, {"tsn", Number}, {"vern_id", Number},
};
constexpr FieldLayout kUnknownKeys[] = {{"PK1", Text}, {"PK2", Text}};
// clang-format on

using enum RecordKind;

const RecordLayout kDeletions[] = {
    {Deletion, "[CM-]", "comments", kCommentKeys},
    {Deletion, "[CL-]", "tu_comments_link", kCommentLinkKeys},
    {Deletion, "[EX-]", "experts", kExpertKeys},
    {Deletion, "[GD-]", "geographic_division", kDivisionKeys},
    {Deletion, "[JR-]", "jurisdiction", kJurisdictionKeys},
    {Deletion, "[OS-]", "other_sources", kSourceKeys},
    {Deletion, "[PB-]", "publications", kPublicationKeys},
    {Deletion, "[RF-]", "reference_links", kReferenceKeys},
    {Deletion, "[SY-]", "synonym_links", kSynonymKeys},
    {Deletion, "[TA-]", "taxon_authors_lookup", kAuthorKeys},
    {Deletion, "[VR-]", "vernaculars", kVernacularKeys},
    {Deletion, "[VL-]", "vern_ref_links", kVernReferenceKeys},
};
const RecordLayout kUnknownDeletion{Deletion, "", "", kUnknownKeys};
const RecordLayout kSkippedRecord{NotStored, "[RV]", "", {}};

}  // namespace

const RecordLayout kTaxonRecord{Taxon, "[TU]", "qb_taxonomic_units", kTaxonFields};
const RecordLayout kAuthorRecord{Author, "[TA]", "qb_taxon_authors_lookup", kAuthorFields};
const RecordLayout kNodcRecord{Nodc, "[NO]", "qb_nodc_ids", kNodcFields};
const RecordLayout kVernacularRecord{Vernacular, "[VR]", "qb_vernaculars", kVernacularFields};
const RecordLayout kSynonymRecord{Synonym, "[SY]", "qb_synonym_links", kSynonymFields};
const RecordLayout kDivisionRecord{Division, "[GD]", "qb_geographic_division", kDivisionFields};
const RecordLayout kJurisdictionRecord{Jurisdiction, "[JR]", "qb_jurisdiction", kJurisdictionFields};
const RecordLayout kReferenceRecord{Reference, "[RF]", "qb_reference_links", kReferenceFields};
const RecordLayout kPublicationRecord{Publication, "[PB]", kPublications.table, kPublicationFields};
const RecordLayout kExpertRecord{Expert, "[EX]", kExperts.table, kExpertFields};
const RecordLayout kSourceRecord{Source, "[OS]", kOtherSources.table, kSourceFields};
const RecordLayout kVernReferenceRecord{VernReference, "[VL]", "qb_vern_ref_links", kVernReferenceFields};
const RecordLayout kCommentLinkRecord{CommentLink, "[CL]", "qb_tu_comments_link", kCommentLinkFields};
const RecordLayout kCommentRecord{Comment, "[CM]", "qb_comments", kCommentFields};
const RecordLayout kChangeTrackRecord{ChangeTrack, "[CT]", "qb_change_tracks", kChangeTrackFields};
const RecordLayout kChangeOperationRecord{ChangeOperation, "[CO]", "qb_change_operations",
                                          kChangeOperationFields};
const RecordLayout kChangeCommentRecord{ChangeComment, "[CC]", "qb_change_comments", kChangeCommentFields};

std::span<const RecordLayout* const> AllRecords() {
    static const std::vector<const RecordLayout*> records = [] {
        std::vector<const RecordLayout*> all = {
            &kTaxonRecord,         &kAuthorRecord,   &kNodcRecord,         &kVernacularRecord,
            &kSynonymRecord,       &kDivisionRecord, &kJurisdictionRecord, &kReferenceRecord,
            &kPublicationRecord,   &kExpertRecord,   &kSourceRecord,       &kVernReferenceRecord,
            &kCommentLinkRecord,   &kCommentRecord,  &kChangeTrackRecord,  &kChangeOperationRecord,
            &kChangeCommentRecord, &kSkippedRecord};
        for (const RecordLayout& deletion : kDeletions) all.push_back(&deletion);
        return all;
    }();
    return records;
}

const RecordLayout* FindRecord(std::string_view tag) {
    for (const RecordLayout* record : AllRecords())
        if (record->tag == tag) return record;
    return nullptr;
}

std::vector<std::string_view> RecordLayout::Columns() const {
    std::vector<std::string_view> columns;
    for (const FieldLayout& field : fields) columns.push_back(field.column);
    return columns;
}

std::size_t RecordLayout::Place(std::string_view column) const {
    const auto found = std::find_if(fields.begin(), fields.end(),
                                    [&](const FieldLayout& field) { return field.column == column; });
    return static_cast<std::size_t>(found - fields.begin());
}

const RecordLayout& DeletionRecord(std::string_view table_name) {
    const std::string name = LowerCase(table_name);
    const auto found = std::find_if(std::begin(kDeletions), std::end(kDeletions),
                                    [&](const RecordLayout& record) { return record.table == name; });
    return found == std::end(kDeletions) ? kUnknownDeletion : *found;
}

}  // namespace quillon::exchange
