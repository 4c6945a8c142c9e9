// gBatchRunning for as long as an object lives: a long job holds one, and the forms start no other meanwhile.
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
