#include "records/record_store.h"

#include "store/unit.h"

namespace quillon::records {

bool RecordStore::RunUnit(store::QueryDef query, std::string_view title) const {
    return Reporting(
        [&] {
            store::Unit unit(engine);
            query.Execute();
            unit.Commit();
        },
        title);
}

}  // namespace quillon::records
