// The table of handlers, and the handlers of a taxon's simple lists: divisions, jurisdictions, synonyms,
// vernaculars.
#include "import/record_handlers.h"

#include "core/text.h"
#include "import/record.h"

namespace quillon::importing {

namespace {

using Handler = void (*)(ImportRun& run, Record& record);

Handler HandlerOf(exchange::RecordKind kind) {
    using enum exchange::RecordKind;
    switch (kind) {
        case Taxon:
            return ReadTaxon;
        case Author:
            return ReadAuthor;
        case Nodc:
            return ReadNodcId;
        case Vernacular:
            return ReadVernacular;
        case Synonym:
            return ReadSynonymLink;
        case Division:
            return ReadDivision;
        case Jurisdiction:
            return ReadJurisdiction;
        case Reference:
            return ReadReference;
        case Publication:
            return ReadPublication;
        case Expert:
            return ReadExpert;
        case Source:
            return ReadOtherSource;
        case VernReference:
            return ReadVernReference;
        case CommentLink:
            return ReadCommentLink;
        case Comment:
            return ReadComment;
        case ChangeTrack:
            return ReadChangeTrack;
        case ChangeOperation:
            return ReadChangeOperation;
        case ChangeComment:
            return ReadChangeComment;
        case Deletion:
            return ReadDeletion;
        case NotStored:
            return nullptr;
    }
    return nullptr;
}

}  // namespace

void HandleLine(ImportRun& run, std::string_view line) {
    const exchange::RecordLayout* layout = exchange::FindRecord(exchange::TagOfLine(line));
    if (layout == nullptr) return run.Report("Invalid Table Tag in the following line of import file!", line);
    const Handler handler = HandlerOf(layout->kind);
    if (handler == nullptr) return;
    Record record(run, line, *layout);
    handler(run, record);
}

void ReadDivision(ImportRun& run, Record& record) {
    const std::int32_t qb_id = record.Number();
    const std::string_view geographic_value = record.Text();
    const std::int32_t tsn = record.Number();
    if (!record.Good()) return;
    if (geographic_value.empty()) return record.Refuse("No geographic_value is present");
    const auto taxon = record.Taxon(qb_id, tsn);
    if (!taxon) return;
    run.Store(run.writers.divisions.Id(run.maps.taxa[*taxon].newId).Text(geographic_value).Id(tsn));
}

void ReadJurisdiction(ImportRun& run, Record& record) {
    const std::int32_t qb_id = record.Number();
    const std::string_view jurisdiction_value = record.Text();
    const std::string_view origin = record.Text();
    const std::int32_t tsn = record.Number();
    if (!record.Good()) return;
    if (jurisdiction_value.empty()) return record.Refuse("No jurisdiction_value is present");
    const auto taxon = record.Taxon(qb_id, tsn);
    if (!taxon) return;
    const std::int32_t newId = run.maps.taxa[*taxon].newId;
    run.Store(run.writers.jurisdictions.Id(newId).Text(jurisdiction_value).Text(origin).Id(tsn));
}

void ReadNodcId(ImportRun& run, Record& record) {
    const std::string_view nodc_id = record.Text();
    const std::int32_t tsn = record.Number();
    const std::int32_t qb_id = record.Number();
    if (!record.Good()) return;
    if (nodc_id.empty()) return record.Refuse("There is no nodc_id present");
    const auto taxon = record.Taxon(qb_id, tsn);
    if (!taxon) return;
    run.Store(run.writers.nodcIds.Text(nodc_id).Id(tsn).Id(run.maps.taxa[*taxon].newId));
}

void ReadSynonymLink(ImportRun& run, Record& record) {
    const std::int32_t qb_id = record.Number();
    const std::int32_t qb_id_accepted = record.Number();
    const std::int32_t tsn = record.Number();
    const std::int32_t tsn_accepted = record.Number();
    if (!record.Good()) return;
    const auto taxon = record.Taxon(qb_id, tsn);
    if (!taxon) return;
    if (KeyOf(qb_id_accepted, tsn_accepted) == 0)
        return record.Refuse("Neither qb_id_accepted nor tsn_accepted is present");
    // The file's id, or -1 while the accepted name is unknown; the closing pass replaces either.
    const std::int32_t accepted = qb_id_accepted != 0 ? qb_id_accepted : run.maps.MapTaxonId(tsn_accepted);
    const std::int32_t newId = run.maps.taxa[*taxon].newId;
    if (!run.Store(run.writers.synonyms.Id(newId).Long(accepted).Id(tsn).Id(tsn_accepted))) return;
    if (qb_id_accepted != 0 || accepted == -1) run.openSynonyms.push_back({newId, accepted, tsn_accepted});
}

void ReadVernacular(ImportRun& run, Record& record) {
    const std::int32_t qb_id = record.Number();
    const std::int32_t qb_vern_id = record.Number();
    const std::int32_t vern_id = record.Number();
    const std::string_view vernacular_name = record.Text();
    const std::int32_t tsn = record.Number();
    const std::string_view language = record.Text();
    const bool approved_ind = record.Indicator();
    if (!record.Good()) return;
    // This message has the letters of another tag.
    const auto taxon = record.Taxon(qb_id, tsn, "RF");
    if (!taxon) return;
    const std::int32_t key = KeyOf(qb_vern_id, vern_id);
    if (key == 0) return record.Refuse("Neither qb_vern_id nor vern_id is present");
    VernacularRow& row = run.See(run.maps.vernaculars, "qb_vernaculars", key);
    const std::string hex_vernacular_name = HexString(vernacular_name);
    const std::int32_t newId = run.maps.taxa[*taxon].newId;
    run.writers.vernaculars.Id(newId).Id(row.newId).Id(vern_id).Text(vernacular_name);
    run.writers.vernaculars.Id(tsn).Text(language.empty() ? "unspecified" : language).Boolean(approved_ind);
    if (!run.StoreOwn(run.writers.vernaculars.Text(hex_vernacular_name), row.stored)) return;
    run.vernaculars.Forget(row);
    row.qb_id = newId;
    row.name = VernacularIndex::HashOf(vernacular_name);
    row.vern_id = vern_id;
    run.vernaculars.Note(row);
}

}  // namespace quillon::importing
