// The rank tables of the two families, the rank indicators and the default parent ranks.
#include "core/text.h"
#include "core/vocabulary.h"

namespace quillon {

namespace {

constexpr std::array<Rank, 21> kAnimalRanks = {{
    {10, "Kingdom", 10, 10},        {20, "Subkingdom", 10, 10},  {30, "Phylum", 20, 10},
    {40, "Subphylum", 30, 30},      {50, "Superclass", 40, 30},  {60, "Class", 50, 30},
    {70, "Subclass", 60, 60},       {80, "Infraclass", 70, 60},  {90, "Superorder", 80, 60},
    {100, "Order", 90, 60},         {110, "Suborder", 100, 100}, {120, "Infraorder", 110, 100},
    {130, "Superfamily", 120, 100}, {140, "Family", 130, 100},   {150, "Subfamily", 140, 140},
    {160, "Tribe", 150, 140},       {170, "Subtribe", 160, 140}, {180, "Genus", 170, 140},
    {190, "Subgenus", 180, 180},    {220, "Species", 190, 180},  {230, "Subspecies", 220, 180},
}};

// "Subclass" and "Order" require a rank 50, which this table lacks. Existing DataSets have these numbers.
constexpr std::array<Rank, 22> kPlantRanks = {{
    {10, "Kingdom", 10, 10},       {20, "Subkingdom", 10, 10},    {30, "Division", 20, 10},
    {40, "Subdivision", 30, 30},   {60, "Class", 40, 30},         {70, "Subclass", 60, 50},
    {100, "Order", 70, 50},        {110, "Suborder", 100, 100},   {140, "Family", 110, 100},
    {150, "Subfamily", 140, 140},  {160, "Tribe", 150, 140},      {170, "Subtribe", 160, 140},
    {180, "Genus", 170, 140},      {190, "Subgenus", 180, 180},   {200, "Section", 190, 180},
    {210, "Subsection", 200, 180}, {220, "Species", 210, 180},    {230, "Subspecies", 220, 180},
    {240, "Variety", 230, 180},    {250, "Subvariety", 240, 180}, {260, "Form", 250, 180},
    {270, "Subform", 260, 180},
}};

struct RankIndicator {
    std::string_view rankName;
    std::string_view indicator;
};

constexpr std::array<RankIndicator, 5> kRankIndicators = {{
    {"SUBSPECIES", "ssp."},
    {"VARIETY", "var."},
    {"SUBVARIETY", "subvar."},
    {"FORM", "f."},
    {"SUBFORM", "subf."},
}};

struct ParentRank {
    std::string_view rankName;
    std::string_view animalParent;
    std::string_view plantParent;
};

constexpr std::array<ParentRank, 29> kDefaultParentRanks = {{
    {"KINGDOM", "Kingdom", "Kingdom"},
    {"SUBKINGDOM", "Kingdom", "Kingdom"},
    {"PHYLUM", "Subkingdom", "Subkingdom"},
    {"DIVISION", "Subkingdom", "Subkingdom"},
    {"SUBPHYLUM", "Phylum", "Phylum"},
    {"SUBDIVISION", "Division", "Division"},
    {"SUPERCLASS", "Subphylum", "Subphylum"},
    {"CLASS", "Subphylum", "Subdivision"},
    {"SUBCLASS", "Class", "Class"},
    {"INFRACLASS", "Subclass", "Subclass"},
    {"SUPERORDER", "Infraclass", "Infraclass"},
    {"ORDER", "Superorder", "Subclass"},
    {"SUBORDER", "Order", "Order"},
    {"INFRAORDER", "Suborder", "Suborder"},
    {"SUPERFAMILY", "Infraorder", "Infraorder"},
    {"FAMILY", "Superfamily", "Suborder"},
    {"SUBFAMILY", "Family", "Family"},
    {"TRIBE", "Subfamily", "Subfamily"},
    {"SUBTRIBE", "Tribe", "Tribe"},
    {"GENUS", "Tribe", "Subtribe"},
    {"SUBGENUS", "Genus", "Genus"},
    {"SECTION", "Genus", "Genus"},
    {"SUBSECTION", "Genus", "Genus"},
    {"SPECIES", "Genus", "Genus"},
    {"SUBSPECIES", "Species", "Species"},
    {"VARIETY", "Species", "Species"},
    {"SUBVARIETY", "Species", "Species"},
    {"FORM", "Species", "Species"},
    {"SUBFORM", "Species", "Species"},
}};

}  // namespace

std::span<const Rank> RanksOf(KingdomFamily family) {
    if (family == KingdomFamily::Plant) return kPlantRanks;
    return kAnimalRanks;
}

Rank RankRow(KingdomFamily family, int row) {
    const int rankId = row * 10;
    for (const Rank& rank : RanksOf(family)) {
        if (rank.rank_id == rankId) return rank;
    }
    return {rankId, "Error", 0, 0};
}

std::string_view GetIndicatorFromRank(std::string_view rankName) {
    const std::string upper = UpperCase(rankName);
    for (const RankIndicator& entry : kRankIndicators) {
        if (entry.rankName == upper) return entry.indicator;
    }
    return {};
}

std::string_view GetRankFromIndicator(std::string_view indicator) {
    const std::string lower = LowerCase(indicator);
    for (const RankIndicator& entry : kRankIndicators) {
        if (entry.indicator == lower) return entry.rankName;
    }
    return {};
}

std::string_view DefaultParentRank(std::string_view rankName, KingdomFamily family) {
    const std::string upper = UpperCase(rankName);
    for (const ParentRank& entry : kDefaultParentRanks) {
        if (entry.rankName != upper) continue;
        return family == KingdomFamily::Plant ? entry.plantParent : entry.animalParent;
    }
    return {};
}

}  // namespace quillon
