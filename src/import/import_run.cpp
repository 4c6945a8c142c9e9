#include "import/import_run.h"

#include <algorithm>

#include "core/text.h"

namespace quillon::importing {

namespace {

constexpr std::string_view kDeleteTaxonRow =
    "PARAMETERS theid Long; DELETE * FROM qb_taxonomic_units WHERE qb_id = theid;";
constexpr std::string_view kKingdomRows =
    "SELECT qb_id, rank_id, usage FROM qb_taxonomic_units WHERE (usage = 'valid' OR usage = 'accepted') "
    "AND rank_id = ";
constexpr std::string_view kAuthors =
    "SELECT qb_taxon_author_id, taxon_author FROM qb_taxon_authors_lookup ORDER BY qb_taxon_author_id;";
// True for failures after which no statement can succeed.
bool ConcernsTheFile(const store::StoreError& error) {
    using store::ErrorNumber;
    static constexpr ErrorNumber fatal[] = {ErrorNumber::DiskFull,    ErrorNumber::DiskError,
                                            ErrorNumber::CorruptFile, ErrorNumber::ReadOnly,
                                            ErrorNumber::FileInUse,   ErrorNumber::ObjectClosed};
    return std::any_of(std::begin(fatal), std::end(fatal),
                       [&](ErrorNumber number) { return error.Is(number); });
}

}  // namespace

std::int32_t NextNumber::Get() {
    if (number_ == 0) number_ = static_cast<std::int32_t>(load_.ReserveAutoNumber(table_));
    return number_;
}

ImportRun::ImportRun(ApplicationState& theState, store::Engine& theEngine, store::Database& database,
                     store::BulkLoad& load, Turns& turns, const ImportSinks& sinks)
    : state(theState),
      engine(theEngine),
      records{theEngine, database, failures_},
      vernaculars(database, maps.vernaculars, turns),
      writers(database),
      nextAuthor(load, "qb_taxon_authors_lookup"),
      nextChangeComment(load, "qb_change_comments"),
      database_(database),
      load_(load),
      sink_(sinks.finding),
      failures_(theState, sinks.failure),
      deleteTaxonRow_(Db().CreateQueryDef("", kDeleteTaxonRow)) {
    ReadKingdom();
    ReadAuthors(turns);
    ReadKingdomRows();
}

void ImportRun::ReadKingdom() {
    store::QueryDef kingdom = Db().OpenQueryDef("Get Kingdom Index");
    kingdom.Set("kingdom", Value::TextOrNull(state.gKingdomName));
    const auto row = kingdom.CreateSnapshot();
    const std::int64_t kingdomId = row->Eof() ? 0 : row->Get("kingdom_id").AsLong();
    if (kingdomId >= 1 && kingdomId <= static_cast<std::int64_t>(kKingdomNames.size()))
        family = FamilyOfKingdom(kKingdomNames[static_cast<std::size_t>(kingdomId - 1)]);

    store::QueryDef rank = Db().OpenQueryDef("Get Rank ID");
    rank.Set("rank", "Kingdom");
    const auto rankRow = rank.CreateSnapshot();
    if (!rankRow->Eof()) kingdomRank = static_cast<std::int32_t>(rankRow->Get("rank_id").AsLong());
}

void ImportRun::ReadAuthors(Turns& turns) {
    const auto rows = Db().OpenRecordset(kAuthors, store::RecordsetType::ForwardOnly);
    for (; !rows->Eof(); rows->MoveNext()) {
        TakeTurn(turns);
        authorTexts.Add(rows->At(1).AsText(), static_cast<std::int32_t>(rows->At(0).AsLong()));
    }
}

void ImportRun::ReadKingdomRows() {
    const auto rows = Db().OpenRecordset(std::string(kKingdomRows) + std::to_string(kingdomRank) + ";",
                                         store::RecordsetType::ForwardOnly);
    for (; !rows->Eof(); rows->MoveNext())
        kingdomRows_.insert(static_cast<std::int32_t>(rows->At(0).AsLong()));
}

void ImportRun::SetLine(std::int64_t number, std::string_view line) {
    line_ = number;
    failures_.SetLine(number, line);
}

void ImportRun::Report(std::string sentence, std::string_view line) {
    importError_ = true;
    sink_({std::move(sentence), std::string(line)});
}

std::int32_t ImportRun::ReserveId(std::string_view table) {
    return static_cast<std::int32_t>(load_.ReserveAutoNumber(table));
}

RowPlace ImportRun::SeeTaxon(std::int32_t key) {
    const RowPlace place = maps.taxa.Find(key);
    if (place != kNoRow) return place;
    return maps.taxa.Append(NewRow<TaxonRow>(key, ReserveId("qb_taxonomic_units")));
}

void ImportRun::ReportFailure(const store::StoreError& error) {
    // A statement interrupted by a Cancel has not failed.
    if (state.gBatchCancel) throw ImportCanceled();
    if (ConcernsTheFile(error)) throw;
    failures_.Message("Failed " + error.Description(), {});
}

bool ImportRun::Store(store::RowWriter& writer) {
    return Guarded([&] { writer.Insert(); });
}

bool ImportRun::StoreOwn(store::RowWriter& writer, Stored& stored) {
    const bool replace = stored == Stored::Own;
    const bool done = Guarded([&] { replace ? writer.InsertOrReplace() : writer.Insert(); });
    if (done) stored = Stored::Own;
    return done;
}

void ImportRun::ReplaceKingdomRows(RowPlace kingdom) {
    newKingdom = maps.taxa[kingdom].newId;
    const bool isNoted = kingdomRows_.erase(newKingdom) != 0;
    for (const std::int32_t qb_id : kingdomRows_) {
        if (!Guarded([&] { deleteTaxonRow_.Set("theid", qb_id).Execute(); })) continue;
        replacedKingdoms.push_back(qb_id);
        const RowPlace taxon = maps.FindTaxonByNewId(qb_id);
        if (taxon == kNoRow) continue;
        maps.taxa[taxon].stored = Stored::Gone;
        maps.taxa[taxon].isKingdomRow = false;
    }
    kingdomRows_.clear();
    if (isNoted) kingdomRows_.insert(newKingdom);
}

void ImportRun::NoteKingdomRow(RowPlace taxon, std::string_view usage, std::int32_t rank_id) {
    TaxonRow& row = maps.taxa[taxon];
    // Compares like the statement that deletes them: a rank of 0 is stored as Null and equals nothing.
    const bool isOne =
        rank_id != 0 && rank_id == kingdomRank && (EqualText(usage, "valid") || EqualText(usage, "accepted"));
    if (isOne == row.isKingdomRow) return;
    row.isKingdomRow = isOne;
    if (isOne)
        kingdomRows_.insert(row.newId);
    else
        kingdomRows_.erase(row.newId);
}

}  // namespace quillon::importing
