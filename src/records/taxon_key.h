// The two ids under which the rows of a taxon are stored: its own, and the one assigned by the authority.
#pragma once

namespace quillon::records {

struct TaxonKey {
    int qb_id = 0;
    int tsn = 0;  // 0 for a name that was never published
};

}  // namespace quillon::records
