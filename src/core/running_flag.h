// Sets gBatchRunning for its lifetime. A long job holds one, and forms start no other job meanwhile.
#pragma once

#include "core/application_state.h"

namespace quillon {

class RunningFlag {
public:
    explicit RunningFlag(ApplicationState& state) : state_(state) { state_.gBatchRunning = true; }
    ~RunningFlag() { state_.gBatchRunning = false; }
    RunningFlag(const RunningFlag&) = delete;
    RunningFlag& operator=(const RunningFlag&) = delete;

private:
    ApplicationState& state_;
};

}  // namespace quillon
