#include "editor/rank_step.h"

#include <fmt/format.h>

#include <array>
#include <optional>
#include <string>

#include "core/text.h"

namespace quillon::editor {

namespace {

constexpr std::size_t kUnits = 4;
// The names of the stored queries by the unit that they move along.
constexpr std::array<std::string_view, kUnits> kFamilies = {"Equal", "Species", "SubSpecies", "Variety"};
constexpr std::array<std::string_view, kUnits> kIdQueries = {"Get ID", "Get ID2", "Get ID3", "Get ID4"};

struct Walk {
    store::Database& database;
    int rank_id;
    std::array<std::string, kUnits> names;

    // Binds the first `count` names; a query of the first unit alone calls it "name".
    void Bind(store::QueryDef& query, std::size_t count) const {
        for (const std::string& parameter : query.Parameters()) {
            if (EqualText(parameter, "rank"))
                query.Set(parameter, rank_id);
            else if (EqualText(parameter, "name"))
                query.Set(parameter, Value::TextOrNull(names[0]));
        }
        for (std::size_t i = 0; i < count; ++i) {
            const std::string parameter = fmt::format("name{}", i + 1);
            for (const std::string& own : query.Parameters())
                if (EqualText(own, parameter)) query.Set(own, Value::TextOrNull(names[i]));
        }
    }
    // Puts the name that the query finds in place of the unit `unit`, from 0. False when there is none.
    bool Take(std::string_view word, std::size_t unit) {
        auto query = database.OpenQueryDef(fmt::format("Get {} {}", word, kFamilies.at(unit)));
        Bind(query, unit + 1);
        const auto row = query.CreateSnapshot();
        if (row->Eof() || row->At(0).AsText().empty()) return false;
        names[unit] = row->At(0).AsText();
        return true;
    }
    int Id(std::size_t unit) const {
        auto query = database.OpenQueryDef(kIdQueries.at(unit));
        Bind(query, unit + 1);
        const auto row = query.CreateSnapshot();
        return row->Eof() ? 0 : static_cast<int>(row->At(0).AsLong());
    }
};

std::size_t UnitOf(std::string_view rankName) {
    if (EqualText(rankName, "Species")) return 1;
    if (EqualText(rankName, "Subspecies")) return 2;
    return EqualText(rankName, "Variety") ? 3 : 0;
}

// To the neighbour, or else to the nearest end of the series of the next higher name that has one.
bool TakeNeighbour(Walk& walk, std::size_t unit, std::string_view word, std::string_view end) {
    if (walk.Take(word, unit)) return true;
    for (std::size_t above = unit; above-- > 0;) {
        if (!walk.Take(word, above)) continue;
        for (std::size_t below = above + 1; below <= unit; ++below)
            if (!walk.Take(end, below)) return false;
        return true;
    }
    return false;
}

bool Take(Walk& walk, std::size_t unit, RankStep step) {
    switch (step) {
        case RankStep::First:
            return walk.Take("First", unit);
        case RankStep::Last:
            return walk.Take("Last", unit);
        case RankStep::Next:
            return TakeNeighbour(walk, unit, "Next", "First");
        case RankStep::Previous:
            break;
    }
    return TakeNeighbour(walk, unit, "Previous", "Last");
}

}  // namespace

int StepByRank(store::Database& database, const CurrentTaxon& taxon, std::string_view rankName,
               RankStep step) {
    auto ranks = database.OpenQueryDef("Get Rank ID");
    const auto rank = ranks.Set("rank", rankName).CreateSnapshot();
    if (rank->Eof()) return 0;
    Walk walk{database,
              static_cast<int>(rank->At(0).AsLong()),
              {taxon.unit_name1, taxon.unit_name2, taxon.unit_name3, taxon.unit_name4}};
    const std::size_t unit = UnitOf(rankName);
    return Take(walk, unit, step) ? walk.Id(unit) : 0;
}

}  // namespace quillon::editor
