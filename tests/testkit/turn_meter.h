// Measures how much the store does between two turns of a job, in steps of its own machine and not in time,
// so that a test can show that a Cancel is heard however large the tables are; and cancels at a turn.
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

    // Begins to count the steps of the open DataSet, which must stay open. A statement that takes turns of
    // its own counts none.
    void Watch();
    void Yield() override;

    int turns = 0;
    int cancelAt = 0;  // the turn that cancels, counted from 1; 0 for none
    long longest = 0;  // steps between two turns, in the longest stretch
    // Steps since the last turn count, too.
    long Longest() const { return std::max(longest, steps_); }

private:
    ApplicationState& state_;
    long steps_ = 0;
    std::optional<store::StatementTurns> watched_;
};

}  // namespace quillon::testkit
