#include "dataset/kingdom_and_ranks.h"

#include <fmt/format.h>

#include <string>
#include <string_view>

#include "core/text.h"
#include "store/engine.h"

namespace quillon::dataset {

void ReadKingdom(ApplicationState& state, Prompter& prompter) {
    auto index = state.gDatabase->OpenQueryDef("Get Kingdom Index");
    const auto kingdom = index.Set("kingdom", state.gKingdomName).CreateSnapshot();
    if (!kingdom->Eof()) {
        state.gKingdomId = static_cast<int>(kingdom->Get("kingdom_id").AsLong());
        return;
    }
    prompter.Message(
        fmt::format("Warning:  The 'Preference' kingdom does not match what is in the {} dataset!  "
                    "Dataset Kingdom will be used.",
                    state.gDataSetPath));
    const auto first = state.gDatabase->CreateSnapshot("SELECT * FROM kingdoms;");
    state.gOldKingdomName = state.gKingdomName;
    state.gKingdomName = first->Eof() ? "" : std::string(Trim(first->Get("kingdom_name").AsText()));
    state.gKingdomId = first->Eof() ? 0 : static_cast<int>(first->Get("kingdom_id").AsLong());
}

void CheckPreferenceRank(ApplicationState& state, Prompter& prompter) {
    const auto rank = state.gDatabase->CreateSnapshot(
        fmt::format("SELECT rank_id FROM taxonomic_unit_types WHERE rank_name = '{}' AND kingdom_id = {};",
                    QuoteSQL(state.gPrefRank), state.gKingdomId));
    if (rank->RecordCount() > 0) return;
    prompter.Message(
        fmt::format("The 'Preference' rank is not valid for the {} dataset!  Defaulting to 'Kingdom'.",
                    state.gDataSetPath));
    state.gOldPrefRank = state.gPrefRank;
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
