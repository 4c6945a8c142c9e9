#include "dataset/kingdom_and_ranks.h"

#include <fmt/format.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/text.h"
#include "store/engine.h"

namespace quillon::dataset {

namespace {

// The id of the kingdom; empty when the DataSet does not have it.
std::optional<int> KingdomIdOf(store::Database& database, const std::string& name) {
    auto index = database.OpenQueryDef("Get Kingdom Index");
    const auto kingdom = index.Set("kingdom", name).CreateSnapshot();
    if (kingdom->Eof()) return std::nullopt;
    return static_cast<int>(kingdom->Get("kingdom_id").AsLong());
}

bool HasRank(const ApplicationState& state, const std::string& name) {
    return state.gDatabase
               ->CreateSnapshot(fmt::format(
                   "SELECT rank_id FROM taxonomic_unit_types WHERE rank_name = '{}' AND kingdom_id = {};",
                   QuoteSQL(name), state.gKingdomId))
               ->RecordCount() > 0;
}

void TakeFirstKingdom(ApplicationState& state) {
    const auto first = state.gDatabase->CreateSnapshot("SELECT * FROM kingdoms;");
    if (state.gOldKingdomName.empty()) state.gOldKingdomName = state.gKingdomName;
    state.gKingdomName = first->Eof() ? "" : std::string(Trim(first->Get("kingdom_name").AsText()));
    state.gKingdomId = first->Eof() ? 0 : static_cast<int>(first->Get("kingdom_id").AsLong());
}

}  // namespace

const std::string& PreferredKingdom(const ApplicationState& state) {
    return state.gOldKingdomName.empty() ? state.gKingdomName : state.gOldKingdomName;
}

void TakePreferredKingdom(ApplicationState& state) {
    state.gKingdomName = PreferredKingdom(state);
    state.gOldKingdomName.clear();
    const auto kingdom = state.gDatabase->CreateSnapshot(fmt::format(
        "SELECT kingdom_id FROM kingdoms WHERE kingdom_name = '{}';", QuoteSQL(state.gKingdomName)));
    if (!kingdom->Eof()) state.gKingdomId = static_cast<int>(kingdom->Get("kingdom_id").AsLong());
}

void ReadKingdom(ApplicationState& state, Prompter& prompter) {
    if (const auto preferred = KingdomIdOf(*state.gDatabase, PreferredKingdom(state))) {
        state.gKingdomName = PreferredKingdom(state);
        state.gOldKingdomName.clear();
        state.gKingdomId = *preferred;
        return;
    }
    if (const auto current = KingdomIdOf(*state.gDatabase, state.gKingdomName)) {
        state.gKingdomId = *current;
        return;
    }
    prompter.WarningMessage(
        fmt::format("Warning:  The 'Preference' kingdom does not match what is in the {} dataset!  "
                    "Dataset Kingdom will be used.",
                    state.gDataSetPath));
    TakeFirstKingdom(state);
}

void CheckPreferenceRank(ApplicationState& state, Prompter& prompter) {
    if (!state.gOldPrefRank.empty() && HasRank(state, state.gOldPrefRank))
        state.gPrefRank = std::exchange(state.gOldPrefRank, "");
    if (HasRank(state, state.gPrefRank)) return;
    if (!state.gPrefRank.empty()) {
        prompter.WarningMessage(
            fmt::format("The 'Preference' rank is not valid for the {} dataset!  Defaulting to 'Kingdom'.",
                        state.gDataSetPath));
        if (state.gOldPrefRank.empty()) state.gOldPrefRank = state.gPrefRank;
    }
    state.gPrefRank = "Kingdom";
}

void ReadRankIds(ApplicationState& state) {
    auto rank = state.gDatabase->OpenQueryDef("Get Rank ID");
    const auto idOf = [&](std::string_view name) {
        const auto row = rank.Set("rank", name).CreateSnapshot();
        return row->Eof() ? 0 : static_cast<int>(row->Get("rank_id").AsLong());
    };
    state.gRankGenus = idOf("Genus");
    state.gRankSpecies = idOf("Species");
}

}  // namespace quillon::dataset
