// The open DataSet of one job of quillon-batch, with all objects that the job's procedures need.
#pragma once

#include <string>

#include "batch/commands.h"
#include "dataset/lifecycle.h"

namespace quillon::batch {

struct BatchJob {
    explicit BatchJob(const CommonOptions& options);

    // Opens `path` and reads its kingdom. Throws StoreError with a text for the user.
    void Open(const std::string& path);

    ApplicationState state;
    store::Engine engine;
    ConsolePrompter prompter;
    SignalPump pump;
    dataset::Lifecycle lifecycle;
    CommonOptions options;
};

}  // namespace quillon::batch
