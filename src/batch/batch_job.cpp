#include "batch/batch_job.h"

#include "core/text.h"

namespace quillon::batch {

BatchJob::BatchJob(const CommonOptions& commonOptions)
    : prompter(commonOptions.answer),
      pump(state),
      lifecycle(state, engine, prompter),
      options(commonOptions) {}

void BatchJob::Open(const std::string& path) {
    state.gDataSetPath = lifecycle.OpenDataSetFile(path);
    if (!state.gDataSetOpen)
        throw store::StoreError(store::ErrorNumber::CannotOpenFile, lifecycle.LastOpenError());
    const store::VersionOrder order = lifecycle.OrderOfOpen();
    if (order != store::VersionOrder::Same)
        throw store::StoreError(store::ErrorNumber::UnrecognizedFormat, dataset::RefusalText(path, order));
    const auto kingdom = state.gDatabase->CreateSnapshot("SELECT * FROM kingdoms;");
    state.gKingdomName = options.kingdom;
    if (options.kingdom.empty() && !kingdom->Eof())
        state.gKingdomName = std::string(Trim(kingdom->Get("kingdom_name").AsText()));
    state.gPrefRank = "Kingdom";
    lifecycle.ReadKingdomAndRanks();
}

}  // namespace quillon::batch
