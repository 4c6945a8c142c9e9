// Measures the work of the store between two turns of a job, in steps of its virtual machine instead of time,
// so that a test can show that a job responds to Cancel with tables of any size. It can also cancel at a
// turn.
#pragma once

#include <algorithm>
#include <optional>

#include "core/application_state.h"
#include "core/outside.h"
#include "store/statement_turns.h"

namespace quillon::testkit {

class TurnMeter : public EventPump {
public:
    explicit TurnMeter(ApplicationState& state) : state_(state) {}

    // Begins to count the steps of the open DataSet, which must stay open. Statements with their own turns
    // are not counted.
    void Watch();
    void Yield() override;

    int turns = 0;
    int cancelAt = 0;  // the turn that cancels, counted from 1; 0 for none
    long longest = 0;  // the largest number of steps between two turns
    // Includes the steps since the last turn.
    long Longest() const { return std::max(longest, steps_); }

private:
    ApplicationState& state_;
    long steps_ = 0;
    std::optional<store::StatementTurns> watched_;
};

}  // namespace quillon::testkit
