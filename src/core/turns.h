// The turns of a long job: at each row it processes events and checks for Cancel. Jobs pass it by reference
// down to the loops that read rows.
#pragma once

#include "core/application_state.h"
#include "core/outside.h"

namespace quillon {

class Turns {
public:
    Turns(ApplicationState& state, EventPump& events) : state_(state), events_(events) {}

    // Processes events; false when the job is canceled. Cheap enough for every row.
    bool Next() {
        events_.Yield();
        return !state_.gBatchCancel;
    }
    // True when the job has been canceled. Processes no events.
    bool Canceled() const { return state_.gBatchCancel; }
    // Ends the job as its Cancel button does.
    void Cancel() { state_.gBatchCancel = true; }

private:
    ApplicationState& state_;
    EventPump& events_;
};

}  // namespace quillon
