// The constants of one validation: the kingdom and its family, the valid years, the ranks that rules need.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/vocabulary.h"
#include "store/engine.h"
#include "validation/dates.h"

namespace quillon::validation {

struct RunFacts {
    int kingdomId = 0;
    std::optional<KingdomFamily> family;  // of the six kingdoms; empty for another id
    YearRange years;
    std::optional<int> genusRank, subgenusRank, speciesRank;  // empty when the DataSet lacks the rank

    bool IsPlant() const { return family == KingdomFamily::Plant; }
    bool IsAnimal() const { return family == KingdomFamily::Animal; }
};

// The kingdom_id of a kingdom's name in the DataSet; empty when it has no such kingdom.
std::optional<int> KingdomIdOf(store::Database& database, std::string_view kingdomName);
// The kingdom of the DataSet's root; empty when it has no root or its kingdom is unknown.
std::string KingdomNameOfDataSet(store::Database& database);
// Reads the facts of a run over `database`. `today` begins with the last valid year; `kingdomName` determines
// the first one.
RunFacts ReadRunFacts(store::Database& database, int kingdomId, std::string_view kingdomName,
                      std::string_view today);

}  // namespace quillon::validation
