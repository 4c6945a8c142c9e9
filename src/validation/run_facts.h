// What stays the same for all rows of one validation: the kingdom and its family, the years that count as
// good, the ranks that rules speak of.
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
    std::optional<KingdomFamily> family;  // of the six kingdoms; nothing for another id
    YearRange years;
    std::optional<int> genusRank, subgenusRank, speciesRank;  // nothing when the DataSet lacks the rank

    bool IsPlant() const { return family == KingdomFamily::Plant; }
    bool IsAnimal() const { return family == KingdomFamily::Animal; }
};

// The kingdom_id of a kingdom's name in the DataSet; nothing when it has no such kingdom.
std::optional<int> KingdomIdOf(store::Database& database, std::string_view kingdomName);
// The name of the kingdom that the DataSet's root belongs to; empty when it has no root, or an unknown one.
std::string KingdomNameOfDataSet(store::Database& database);
// The facts of a run over `database`; `today` begins with the year, `kingdomName` decides the earliest one.
RunFacts ReadRunFacts(store::Database& database, int kingdomId, std::string_view kingdomName,
                      std::string_view today);

}  // namespace quillon::validation
