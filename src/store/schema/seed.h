// The values of the root taxon of a new DataSet other than its name and rank, by kingdom. The other seed rows
// come from the vocabulary.
#pragma once

#include <string_view>

namespace quillon::store {

struct RootTaxon {
    int tsn;
    std::string_view credibility;   // taxonomic_credibility_rating
    std::string_view completeness;  // taxonomic_completeness_rating
    std::string_view currency;      // currency_rating
    std::string_view stamp;         // initial_time_stamp, "yyyy-mm-dd hh:mm:ss"
};

// By kingdom_id, 1 to 6; nullptr for every other number, 0 included.
const RootTaxon* RootTaxonOf(int kingdomIndex);

}  // namespace quillon::store
