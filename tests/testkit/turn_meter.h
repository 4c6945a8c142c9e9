// Measures the work of the store between two turns of a job, in steps of its virtual machine instead of time,
// so that a test can show that a job responds to Cancel with tables of any size. It can also cancel at a
// turn.
#pragma once

#include <algorithm>
#include <optional>

#include "core/application_state.h"
#include "store/statement_turns.h"
#include "testkit/outside.h"

namespace quillon::testkit {

class TurnMeter : public CancelingPump {
public:
    explicit TurnMeter(ApplicationState& state) : CancelingPump(state), state_(state) {}

    // Begins to count the steps of the open DataSet, which must stay open. Statements with their own turns
    // are not counted.
    void Watch();
    void Yield() override;

    long longest = 0;  // the largest number of steps between two turns
    // Includes the steps since the last turn.
    long Longest() const { return std::max(longest, steps_); }

private:
    ApplicationState& state_;
    long steps_ = 0;
    std::optional<store::StatementTurns> watched_;
};

}  // namespace quillon::testkit
