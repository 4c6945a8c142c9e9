// Documents and comments, and their links to taxa and vernaculars.
#include "core/document_kinds.h"
#include "import/record.h"
#include "import/record_handlers.h"

namespace quillon::importing {

namespace {

LinkedRow& SeeOwnLine(ImportRun& run, KeyedRows<LinkedRow>& rows, std::string_view table, std::int32_t key) {
    LinkedRow& row = run.See(rows, table, key);
    row.ownLineSeen = true;
    return row;
}

LinkedRow& SeeLink(ImportRun& run, KeyedRows<LinkedRow>& rows, std::string_view table, std::int32_t key,
                   RowPlace taxon) {
    LinkedRow& row = run.See(rows, table, key);
    row.linkLineSeen = true;
    row.taxon = taxon;
    return row;
}

KeyedRows<LinkedRow>& RowsOf(IdMaps& maps, const DocumentKind& kind) {
    if (&kind == &kExperts) return maps.experts;
    return &kind == &kOtherSources ? maps.otherSources : maps.publications;
}

// The fields of [RF] and [VL] that identify the taxon and the document.
struct LinkFields {
    std::int32_t qb_id = 0, tsn = 0;
    std::string_view prefix, secondPrefix;
    std::int32_t qb_documentation_id = 0, documentation_id = 0;
};

struct Link {
    std::int32_t qb_id = 0;  // the new ids
    std::int32_t qb_documentation_id = 0;
    std::string_view prefix;
    std::int32_t tsn = 0;
    std::int32_t documentation_id = 0;
};

// Looks up the ids of taxon and document; empty after a finding. `prefixLetters` are shown in the finding of
// a wrong prefix.
std::optional<Link> ResolveLink(ImportRun& run, Record& record, const LinkFields& fields,
                                std::string_view prefixLetters) {
    const auto taxon = record.Taxon(fields.qb_id, fields.tsn);
    if (!taxon) return std::nullopt;
    const std::int32_t key = KeyOf(fields.qb_documentation_id, fields.documentation_id);
    if (key == 0) {
        record.Refuse("Neither qb_documentation_id nor documentation_id is present");
        return std::nullopt;
    }
    const std::string_view prefix = fields.prefix.empty() ? fields.secondPrefix : fields.prefix;
    if (prefix.empty()) {
        record.Refuse("Neither qb_documentation_id_prefix nor documentation_id_prefix is present");
        return std::nullopt;
    }
    const DocumentKind* kind = FindDocumentKind(prefix);
    if (kind == nullptr) {
        record.Refuse("Invalid document prefix", prefixLetters);
        return std::nullopt;
    }
    const LinkedRow& document = SeeLink(run, RowsOf(run.maps, *kind), kind->table, key, *taxon);
    return Link{run.maps.taxa[*taxon].newId, document.newId, prefix, fields.tsn, fields.documentation_id};
}

void StoreVernReference(ImportRun& run, const Link& link, std::int32_t qb_vern_id, std::int32_t vern_id) {
    store::RowWriter& writer = run.writers.vernReferences;
    writer.Id(link.qb_id).Id(qb_vern_id).Id(vern_id).Text(link.prefix).Id(link.qb_documentation_id);
    run.Store(writer.Id(link.tsn).Id(link.documentation_id));
}

// Stores a reference of the vernacular named in the line.
void StoreReferenceOfName(ImportRun& run, Record& record, const Link& link,
                          std::string_view vernacular_name) {
    const auto vern_id = run.vernaculars.FindVernId(link.qb_id, vernacular_name);
    if (!vern_id) return record.Refuse("Invalid vernacular_id", "VL");
    const auto qb_vern_id = run.vernaculars.FindQbVernId(*vern_id);
    if (!qb_vern_id) return record.Refuse("Invalid qb_vernacular_id", "VL");
    StoreVernReference(run, link, *qb_vern_id, *vern_id);
}

}  // namespace

void ReadReference(ImportRun& run, Record& record) {
    LinkFields fields;
    fields.qb_id = record.Number();
    fields.prefix = record.Text();
    fields.qb_documentation_id = record.Number();
    fields.tsn = record.Number();
    fields.secondPrefix = record.Text();
    fields.documentation_id = record.Number();
    const bool original_desc_ind = record.Indicator();
    const std::optional<bool> initial_orva_desc_ind = record.IndicatorOrNull();
    const std::int32_t qb_change_track_id = record.Number();
    const std::string_view vernacular_name = record.Text();
    if (!record.Good()) return;
    const auto link = ResolveLink(run, record, fields, vernacular_name.empty() ? "RF" : "VL");
    if (!link) return;
    if (!vernacular_name.empty()) return StoreReferenceOfName(run, record, *link, vernacular_name);
    store::RowWriter& writer = run.writers.references;
    writer.Id(link->qb_id).Text(link->prefix).Id(link->qb_documentation_id).Id(link->tsn);
    writer.Id(link->documentation_id).Boolean(link->prefix == kPublications.prefix && original_desc_ind);
    writer.BooleanOrNull(initial_orva_desc_ind);
    run.Store(writer.Id(qb_change_track_id));
}

void ReadVernReference(ImportRun& run, Record& record) {
    LinkFields fields;
    fields.qb_id = record.Number();
    record.Number();  // qb_vern_id: the vernacular is found by the authority's id
    const std::int32_t vern_id = record.Number();
    fields.prefix = record.Text();
    fields.qb_documentation_id = record.Number();
    fields.tsn = record.Number();
    fields.secondPrefix = record.Text();
    fields.documentation_id = record.Number();
    if (!record.Good()) return;
    const auto link = ResolveLink(run, record, fields, "VL");
    if (!link) return;
    const auto qb_vern_id = run.vernaculars.FindQbVernId(vern_id);
    if (!qb_vern_id) return record.Refuse("Invalid vernacular_id");
    StoreVernReference(run, *link, *qb_vern_id, vern_id);
}

void ReadExpert(ImportRun& run, Record& record) {
    record.Text();  // expert_id_prefix, ignored: a constant prefix is stored
    const std::int32_t qb_expert_id = record.Number();
    const std::int32_t expert_id = record.Number();
    const std::string_view expert = record.Text();
    const std::string_view exp_comment = record.Text();
    if (!record.Good()) return;
    const std::int32_t key = KeyOf(qb_expert_id, expert_id);
    if (key == 0) return record.Refuse("Neither qb_expert_id nor expert_id is present");
    LinkedRow& row = SeeOwnLine(run, run.maps.experts, kExperts.table, key);
    store::RowWriter& writer = run.writers.experts;
    run.StoreOwn(writer.Text(kExperts.prefix).Id(row.newId).Id(expert_id).Text(expert).Text(exp_comment),
                 row.stored);
}

void ReadPublication(ImportRun& run, Record& record) {
    record.Text();  // publication_id_prefix
    const std::int32_t qb_publication_id = record.Number();
    const std::int32_t publication_id = record.Number();
    const std::string_view reference_author = record.Text();
    const std::string_view title = record.Text();
    const std::string_view publication_name = record.Text();
    const std::string listed_pub_date = record.Date();
    const std::string actual_pub_date = record.Date();
    const std::string_view publisher = record.Text();
    const std::string_view pub_place = record.Text();
    const std::string_view isbn = record.Text();
    const std::string_view issn = record.Text();
    const std::string_view pages = record.Text();
    const std::string_view pub_comment = record.Text();
    if (!record.Good()) return;
    const std::int32_t key = KeyOf(qb_publication_id, publication_id);
    if (key == 0) return record.Refuse("Neither qb_publication_id nor publication_id is present");
    LinkedRow& row = SeeOwnLine(run, run.maps.publications, kPublications.table, key);
    store::RowWriter& writer = run.writers.publications;
    writer.Text(kPublications.prefix).Id(row.newId).Id(publication_id).Text(reference_author).Text(title);
    writer.Text(publication_name).Text(listed_pub_date).Text(actual_pub_date).Text(publisher);
    writer.Text(pub_place).Text(isbn).Text(issn).Text(pages).Text(pub_comment);
    run.StoreOwn(writer, row.stored);
}

void ReadOtherSource(ImportRun& run, Record& record) {
    record.Text();  // source_id_prefix
    const std::int32_t qb_source_id = record.Number();
    const std::int32_t source_id = record.Number();
    const std::string_view source_type = record.Text();
    const std::string_view source = record.Text();
    const std::string_view version = record.Text();
    const std::string acquisition_date = record.Date();
    const std::string_view source_comment = record.Text();
    if (!record.Good()) return;
    const std::int32_t key = KeyOf(qb_source_id, source_id);
    if (key == 0) return record.Refuse("Neither qb_source_id nor source_id is present");
    LinkedRow& row = SeeOwnLine(run, run.maps.otherSources, kOtherSources.table, key);
    store::RowWriter& writer = run.writers.otherSources;
    writer.Text(kOtherSources.prefix)
        .Id(row.newId)
        .Id(source_id)
        .Text(source_type)
        .Text(source)
        .Text(version);
    run.StoreOwn(writer.Text(acquisition_date).Text(source_comment), row.stored);
}

void ReadComment(ImportRun& run, Record& record) {
    const std::int32_t qb_comment_id = record.Number();
    const std::int32_t comment_id = record.Number();
    const std::string_view commentator = record.Text();
    const std::string_view comment_detail = record.Text();
    const std::string comment_time_stamp = record.Date();
    if (!record.Good()) return;
    const std::int32_t key = KeyOf(qb_comment_id, comment_id);
    if (key == 0) return record.Refuse("Neither qb_comment_id nor comment_id is present");
    LinkedRow& row = SeeOwnLine(run, run.maps.comments, "qb_comments", key);
    store::RowWriter& writer = run.writers.comments;
    writer.Id(row.newId).Id(comment_id).Text(commentator).Text(comment_detail).Text(comment_time_stamp);
    run.StoreOwn(writer, row.stored);
}

void ReadCommentLink(ImportRun& run, Record& record) {
    const std::int32_t qb_id = record.Number();
    const std::int32_t qb_comment_id = record.Number();
    const std::int32_t tsn = record.Number();
    const std::int32_t comment_id = record.Number();
    if (!record.Good()) return;
    const auto taxon = record.Taxon(qb_id, tsn);
    if (!taxon) return;
    const std::int32_t key = KeyOf(qb_comment_id, comment_id);
    if (key == 0) return record.Refuse("Neither qb_comment_id nor comment_id is present");
    const LinkedRow& comment = SeeLink(run, run.maps.comments, "qb_comments", key, *taxon);
    const std::int32_t newId = run.maps.taxa[*taxon].newId;
    run.Store(run.writers.commentLinks.Id(newId).Id(comment.newId).Id(tsn).Id(comment_id));
}

}  // namespace quillon::importing
