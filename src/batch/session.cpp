#include "batch/session.h"

#include <fmt/format.h>

#include "core/text.h"
#include "store/lifecycle/version.h"

namespace quillon::batch {

Session::Session(const CommonOptions& commonOptions)
    : prompter(commonOptions.answer),
      pump(state),
      lifecycle(state, engine, prompter),
      options(commonOptions) {}

void Session::Open(const std::string& path) {
    state.gDataSetPath = lifecycle.OpenDataSetFile(path);
    if (!state.gDataSetOpen)
        throw store::StoreError(store::ErrorNumber::CannotOpenFile, lifecycle.LastOpenError());
    std::string version;
    if (!store::IsDataSetVersionValid(*state.gDatabase, version) ||
        store::CompareDataSetVersion(version, state.gVersion) != store::VersionOrder::Same)
        throw store::StoreError(
            store::ErrorNumber::UnrecognizedFormat,
            fmt::format("Dataset {} is incompatible with this version of the QLN!", path));
    const auto kingdom = state.gDatabase->CreateSnapshot("SELECT * FROM kingdoms;");
    state.gKingdomName = options.kingdom;
    if (options.kingdom.empty() && !kingdom->Eof())
        state.gKingdomName = std::string(Trim(kingdom->Get("kingdom_name").AsText()));
    state.gPrefRank = "Kingdom";
    lifecycle.ReadKingdomAndRanks();
}

}  // namespace quillon::batch
