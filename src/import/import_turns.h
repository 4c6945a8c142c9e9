// The turns of an import: at each one events are let through, and a Cancel ends the import.
//
// Everything in this folder that may take long takes turns, so that no stage is deaf to the user.
#pragma once

#include "core/application_state.h"
#include "core/outside.h"

namespace quillon::importing {

// Thrown at the turn that hears the Cancel. TaggedImport catches it; it never leaves the folder.
struct ImportCanceled {};

class ImportTurns {
public:
    ImportTurns(const ApplicationState& state, EventPump& events) : state_(state), events_(events) {}

    // False when the user has cancelled. For callers that must not throw.
    bool GoOn() const {
        events_.Yield();
        return !state_.gBatchCancel;
    }
    // Throws ImportCanceled when the user has cancelled.
    void Take() const {
        if (!GoOn()) throw ImportCanceled();
    }

private:
    const ApplicationState& state_;
    EventPump& events_;
};

}  // namespace quillon::importing
