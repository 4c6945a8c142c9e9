#include "export/record_layout.h"

#include <algorithm>

#include "core/text.h"

namespace quillon::exporting {

namespace {

using enum FieldForm;

// clang-format off
constexpr FieldLayout kTaxonFields[] = {
    {"qb_id", Number}, {"tsn", Number},
    {"unit_ind1", Text}, {"unit_name1", Text}, {"unit_ind2", Text}, {"unit_name2", Text},
    {"unit_ind3", Text}, {"unit_name3", Text}, {"unit_ind4", Text}, {"unit_name4", Text},
    {"unnamed_taxon_ind", Text}, {"usage", Text}, {"unacceptability_reason", Other},
    {"taxonomic_credibility_rating", Text}, {"taxonomic_completeness_rating", Text},
    {"currency_rating", Text},
    {"phylo_sort_sequence", Number}, {"initial_time_stamp", Text},
    {"parent_tsn", Number}, {"parent_qb_id", Other},
    {"taxon_author_id", Other}, {"qb_taxon_author_id", Number}, {"hybrid_author_id", Number},
    {"kingdom_id", Number}, {"rank_id", Number}, {"uncertain_parent_ind", YesNo},
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
    {"pages", Text}, {"pub_comment", Other},
};
constexpr FieldLayout kExpertFields[] = {
    {"expert_id_prefix", Text}, {"qb_expert_id", Number}, {"expert_id", Number}, {"expert", Text},
    {"exp_comment", Other},
};
constexpr FieldLayout kSourceFields[] = {
    {"source_id_prefix", Text}, {"qb_source_id", Number}, {"source_id", Number}, {"source_type", Text},
    {"source", Text}, {"version", Text}, {"acquisition_date", Date}, {"source_comment", Other},
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
constexpr std::array<FieldLayout, 4> kTombstoneFields = {
    {{"pk1", Text}, {"pk2", Text}, {"pk3", Text}, {"pk4", Text}}};
// clang-format on

constexpr std::string_view kTombstones = "db_tombstone";

struct Tombstone {
    std::string_view table_name;
    RecordLayout record;
};

constexpr Tombstone Keys(std::string_view table_name, std::string_view tag, std::size_t keys) {
    return {table_name, {tag, kTombstones, std::span<const FieldLayout>(kTombstoneFields.data(), keys)}};
}

const std::array<Tombstone, 12> kTombstoneRecords = {{
    Keys("comments", "[CM-]", 1),
    Keys("tu_comments_link", "[CL-]", 2),
    Keys("experts", "[EX-]", 2),
    Keys("geographic_division", "[GD-]", 2),
    Keys("jurisdiction", "[JR-]", 2),
    Keys("other_sources", "[OS-]", 2),
    Keys("publications", "[PB-]", 2),
    Keys("reference_links", "[RF-]", 3),
    Keys("synonym_links", "[SY-]", 2),
    Keys("taxon_authors_lookup", "[TA-]", 2),
    Keys("vernaculars", "[VR-]", 2),
    Keys("vern_ref_links", "[VL-]", 4),
}};
const Tombstone kUnknownTombstone = Keys("", "", 2);

}  // namespace

const RecordLayout kTaxonRecord{"[TU]", "qb_taxonomic_units", kTaxonFields};
const RecordLayout kAuthorRecord{"[TA]", "qb_taxon_authors_lookup", kAuthorFields};
const RecordLayout kNodcRecord{"[NO]", "qb_nodc_ids", kNodcFields};
const RecordLayout kVernacularRecord{"[VR]", "qb_vernaculars", kVernacularFields};
const RecordLayout kSynonymRecord{"[SY]", "qb_synonym_links", kSynonymFields};
const RecordLayout kDivisionRecord{"[GD]", "qb_geographic_division", kDivisionFields};
const RecordLayout kJurisdictionRecord{"[JR]", "qb_jurisdiction", kJurisdictionFields};
const RecordLayout kReferenceRecord{"[RF]", "qb_reference_links", kReferenceFields};
const RecordLayout kPublicationRecord{"[PB]", "qb_publications", kPublicationFields};
const RecordLayout kExpertRecord{"[EX]", "qb_experts", kExpertFields};
const RecordLayout kSourceRecord{"[OS]", "qb_other_sources", kSourceFields};
const RecordLayout kVernReferenceRecord{"[VL]", "qb_vern_ref_links", kVernReferenceFields};
const RecordLayout kCommentLinkRecord{"[CL]", "qb_tu_comments_link", kCommentLinkFields};
const RecordLayout kCommentRecord{"[CM]", "qb_comments", kCommentFields};
const RecordLayout kChangeTrackRecord{"[CT]", "qb_change_tracks", kChangeTrackFields};
const RecordLayout kChangeOperationRecord{"[CO]", "qb_change_operations", kChangeOperationFields};
const RecordLayout kChangeCommentRecord{"[CC]", "qb_change_comments", kChangeCommentFields};

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

const RecordLayout& TombstoneRecord(std::string_view table_name) {
    const std::string name = LowerCase(table_name);
    const auto found = std::find_if(kTombstoneRecords.begin(), kTombstoneRecords.end(),
                                    [&](const Tombstone& tombstone) { return tombstone.table_name == name; });
    return found == kTombstoneRecords.end() ? kUnknownTombstone.record : found->record;
}

std::string_view TombstoneTag(std::string_view table_name) {
    return TombstoneRecord(table_name).tag;
}

}  // namespace quillon::exporting
