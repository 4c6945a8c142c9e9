// One DataSet open for one job of quillon-batch, with everything that the job's procedures ask for.
#pragma once

#include <string>

#include "batch/commands.h"
#include "dataset/lifecycle.h"

namespace quillon::batch {

struct BatchJob {
    explicit BatchJob(const CommonOptions& options);

    // Opens `path` and takes its kingdom. A failure is a StoreError with a text for the user.
    void Open(const std::string& path);

    ApplicationState state;
    store::Engine engine;
    ConsolePrompter prompter;
    SignalPump pump;
    dataset::Lifecycle lifecycle;
    CommonOptions options;
};

}  // namespace quillon::batch
