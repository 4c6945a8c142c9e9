#include "records/journal.h"

#include <string>

namespace quillon::records {

bool IsInJournal(store::Database& database, int qb_id) {
    const auto count = database.CreateSnapshot("Select count(*) as qbcount from journal where qb_id = " +
                                               std::to_string(qb_id));
    return count->Get("qbcount").AsLong() != 0;
}

void AddToJournal(store::Database& database, int qb_id) {
    if (IsInJournal(database, qb_id)) return;
    const auto journal = database.OpenTable("journal");
    journal->AddNew();
    journal->Set("qb_id", qb_id);
    journal->Update();
}

}  // namespace quillon::records
