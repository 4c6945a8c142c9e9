#include "records/journal.h"

#include <string_view>

namespace quillon::records {

namespace {

constexpr std::string_view kFind = "PARAMETERS theid Long; SELECT qb_id FROM journal WHERE qb_id = theid;";
// A statement and not a table that is opened, which would read all rows before the first write.
constexpr std::string_view kAdd = "PARAMETERS theid Long; INSERT INTO journal ( qb_id ) SELECT theid;";

}  // namespace

bool IsInJournal(store::Database& database, int qb_id) {
    store::QueryDef query = database.CreateQueryDef("", kFind);
    return !query.Set("theid", qb_id).OpenRecordset(store::RecordsetType::ForwardOnly)->Eof();
}

void AddToJournal(store::Database& database, int qb_id) {
    if (IsInJournal(database, qb_id)) return;
    database.CreateQueryDef("", kAdd).Set("theid", qb_id).Execute();
}

}  // namespace quillon::records
