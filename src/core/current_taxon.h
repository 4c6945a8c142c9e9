// The one record of the taxon under edit. Texts are "" and ids are 0 where the column is Null.
#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "core/value.h"

namespace quillon {

struct CurrentTaxon {
    int qb_id = 0;
    int tsn = 0;
    std::string nodc_id;
    std::string unit_ind1, unit_name1, unit_ind2, unit_name2, unit_ind3, unit_name3, unit_ind4, unit_name4;
    std::string unnamed_taxon_ind;
    std::string usage;
    std::string unacceptability_reason;
    std::string taxonomic_credibility_rating;
    std::string taxonomic_completeness_rating;
    std::string currency_rating;
    int phylo_sort_sequence = 0;
    Value initial_time_stamp;  // as stored, Null stays Null
    int parent_tsn = 0;
    int parent_qb_id = 0;
    int qb_taxon_author_id = 0;
    std::string taxon_author;
    std::string hybrid_author;
    int hybrid_author_id = 0;
    int kingdom_id = 0;
    int rank_id = 0;
    std::string rank_name;
    std::string parent_rank_name;
    std::string parent_name;
    int direct_parent_rank_id = 0;
    int required_parent_rank_id = 0;
    bool authorExisted = false;
    bool hybridAuthorExisted = false;
    int uncertain_parent_ind = 0;  // -1 or 0
    std::vector<std::string> divisions;
    std::vector<std::pair<std::string, std::string>> jurisdictions;  // value and origin
};

}  // namespace quillon
