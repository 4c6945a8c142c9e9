// The taxon itself, and its authors.
#include <array>

#include "core/vocabulary.h"
#include "import/record.h"
#include "import/record_handlers.h"

namespace quillon::importing {

namespace {

struct TaxonFields {
    std::int32_t qb_id, tsn;
    std::array<std::string_view, 8> units;  // unit_ind1, unit_name1 to unit_name4
    std::string_view unnamed_taxon_ind, usage, unacceptability_reason;
    std::array<std::string_view, 3> ratings;  // credibility, completeness, currency
    std::int32_t phylo_sort_sequence;
    std::string_view initial_time_stamp;
    std::int32_t parent_tsn, parent_qb_id, author, hybrid_author_id, kingdom_id, rank_id;
    std::optional<bool> uncertain_parent_ind;
};

TaxonFields ReadTaxonFields(Record& record) {
    TaxonFields fields{};
    fields.qb_id = record.Number();
    fields.tsn = record.Number();
    for (std::string_view& unit : fields.units) unit = record.Text();
    fields.unnamed_taxon_ind = record.Text();
    fields.usage = record.Text();
    fields.unacceptability_reason = record.Text();
    for (std::string_view& rating : fields.ratings) rating = record.Text();
    fields.phylo_sort_sequence = record.Number();
    fields.initial_time_stamp = record.Text();
    fields.parent_tsn = record.Number();
    fields.parent_qb_id = record.Number();
    const std::int32_t taxon_author_id = record.Number();
    fields.author = KeyOf(record.Number(), taxon_author_id);
    fields.hybrid_author_id = record.Number();
    fields.kingdom_id = record.Number();
    fields.rank_id = record.Number();
    // Lines of the older layout end here.
    if (!record.AtEnd()) fields.uncertain_parent_ind = record.IndicatorOrNull();
    return fields;
}

bool StoreTaxon(ImportRun& run, RowPlace taxon, const TaxonFields& fields) {
    TaxonRow& row = run.maps.taxa[taxon];
    store::RowWriter& writer = run.writers.taxa;
    writer.Id(row.newId).Id(fields.tsn);
    for (const std::string_view unit : fields.units) writer.Text(unit);
    writer.Text(fields.unnamed_taxon_ind).Text(fields.usage).Text(fields.unacceptability_reason);
    for (const std::string_view rating : fields.ratings) writer.Text(rating);
    writer.Id(fields.phylo_sort_sequence).Text(fields.initial_time_stamp);
    // Parents and authors keep the file's ids until the closing pass.
    writer.Id(fields.parent_tsn).Id(fields.parent_qb_id).Id(fields.author).Id(fields.hybrid_author_id);
    writer.Id(fields.kingdom_id).Id(fields.rank_id).BooleanOrNull(fields.uncertain_parent_ind);
    if (!run.StoreOwn(writer, row.stored)) return false;
    run.NoteKingdomRow(taxon, fields.usage, fields.rank_id);
    return true;
}

}  // namespace

void ReadTaxon(ImportRun& run, Record& record) {
    TaxonFields fields = ReadTaxonFields(record);
    if (!record.Good()) return;
    const auto taxon = record.Taxon(fields.qb_id, fields.tsn);
    if (!taxon) return;
    TaxonRow& row = run.maps.taxa[*taxon];
    row.parent_tsn = fields.parent_tsn;
    row.parent_qb_id = fields.parent_qb_id;
    row.author = fields.author;
    row.hybrid_author_id = fields.hybrid_author_id;
    row.isOwnParent = UsageIsAccepted(fields.usage) && fields.rank_id == run.kingdomRank;
    if (row.isOwnParent) row.parent_qb_id = fields.parent_qb_id = row.newId;
    OldReason rewritten;
    if (!fields.unacceptability_reason.empty()) {
        rewritten = RewriteOldReason(run.family, fields.usage, fields.unacceptability_reason);
        fields.unacceptability_reason = rewritten.reason;
        if (rewritten.unnamed) fields.unnamed_taxon_ind = "Yes";
        if (!rewritten.finding.empty()) record.Report(rewritten.finding);
    }
    // Only another Kingdom record brings back one that was replaced.
    if (row.stored == Stored::Gone && !row.isOwnParent) return;
    // The old Kingdom records are deleted last, so that a line that cannot be stored leaves them.
    if (StoreTaxon(run, *taxon, fields) && row.isOwnParent) run.ReplaceKingdomRows(*taxon);
}

void ReadAuthor(ImportRun& run, Record& record) {
    const std::int32_t qb_taxon_author_id = record.Number();
    const std::int32_t taxon_author_id = record.Number();
    const std::string_view taxon_author = record.Text();
    const std::int32_t kingdom_id = record.Number();
    if (!record.Good()) return;
    const std::int32_t key = KeyOf(qb_taxon_author_id, taxon_author_id);
    if (key == 0) return record.Refuse("Neither qb_taxon_author_id nor taxon_author_id is present");
    const std::int32_t newId = run.nextAuthor.Get();
    if (run.Store(run.writers.authors.Id(newId).Id(taxon_author_id).Text(taxon_author).Long(kingdom_id))) {
        run.nextAuthor.Used();
        run.authorTexts.Add(taxon_author, newId);
    }
    // The first row with the text: of this line, or an earlier one.
    const std::int32_t authorId = run.authorTexts.Find(taxon_author);
    if (authorId != 0) run.maps.authors.Append({key, authorId});
}

}  // namespace quillon::importing
