// The two ids under which the rows of a taxon are stored: its own, and the one from the authority.
#pragma once

#include "core/current_taxon.h"

namespace quillon::records {

struct TaxonKey {
    int qb_id = 0;
    int tsn = 0;  // 0 for a name that was never published
};

inline TaxonKey KeyOf(const CurrentTaxon& taxon) {
    return {taxon.qb_id, taxon.tsn};
}

}  // namespace quillon::records
