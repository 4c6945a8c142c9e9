#include "validation/run_facts.h"

namespace quillon::validation {

namespace {

constexpr std::string_view kRoot = "SELECT kingdom_id FROM qb_taxonomic_units WHERE rank_id = 10";

std::optional<int> FirstNumber(store::QueryDef& query) {
    const auto row = query.CreateSnapshot();
    if (row->Eof() || row->At(0).IsNull()) return std::nullopt;
    return static_cast<int>(row->At(0).AsLong());
}

std::optional<int> RankId(store::Database& database, std::string_view rankName) {
    store::QueryDef query = database.OpenQueryDef("Get Rank ID");
    return FirstNumber(query.Set("rank", rankName));
}

std::string_view NameOfKingdom(int kingdomId) {
    if (kingdomId < 1 || kingdomId > static_cast<int>(kKingdomNames.size())) return {};
    return kKingdomNames[static_cast<std::size_t>(kingdomId - 1)];
}

}  // namespace

std::optional<int> KingdomIdOf(store::Database& database, std::string_view kingdomName) {
    store::QueryDef query = database.OpenQueryDef("Get Kingdom Index");
    return FirstNumber(query.Set("kingdom", Value::TextOrNull(kingdomName)));
}

std::string KingdomNameOfDataSet(store::Database& database) {
    const auto row = database.CreateSnapshot(kRoot);
    return row->Eof() ? std::string() : std::string(NameOfKingdom(static_cast<int>(row->At(0).AsLong())));
}

RunFacts ReadRunFacts(store::Database& database, int kingdomId, std::string_view kingdomName,
                      std::string_view today) {
    RunFacts facts;
    facts.kingdomId = kingdomId;
    const std::string_view name = NameOfKingdom(kingdomId);
    if (!name.empty()) facts.family = FamilyOfKingdom(name);
    facts.years = {LowestCurrencyYear(FamilyOfKingdom(kingdomName)),
                   ShortNumber(today.substr(0, 4)).value_or(0)};
    facts.genusRank = RankId(database, "Genus");
    facts.subgenusRank = RankId(database, "SubGenus");
    facts.speciesRank = RankId(database, "Species");
    return facts;
}

}  // namespace quillon::validation
