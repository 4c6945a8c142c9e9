#include "testkit/turn_meter.h"

namespace quillon::testkit {

namespace {

constexpr int kGrain = 100;

}  // namespace

void TurnMeter::Watch() {
    steps_ = 0;
    watched_.emplace(
        *state_.gDatabase,
        [this] {
            steps_ += kGrain;
            return true;
        },
        kGrain);
}

void TurnMeter::Yield() {
    longest = Longest();
    steps_ = 0;
    CancelingPump::Yield();
}

}  // namespace quillon::testkit
