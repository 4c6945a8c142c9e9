#include "testkit/turn_meter.h"

#include <sqlite3.h>

#include "store/engine.h"
#include "store/engine/connection.h"

namespace quillon::testkit {

namespace {

constexpr int kGrain = 100;

}  // namespace

TurnMeter::~TurnMeter() {
    if (watched_ != nullptr) sqlite3_progress_handler(watched_, 0, nullptr, nullptr);
}

void TurnMeter::Watch() {
    watched_ = state_.gDatabase->Shared()->Native();
    sqlite3_progress_handler(watched_, kGrain, Count, this);
    steps_ = 0;
}

int TurnMeter::Count(void* meter) {
    static_cast<TurnMeter*>(meter)->steps_ += kGrain;
    return 0;
}

void TurnMeter::Yield() {
    longest = Longest();
    steps_ = 0;
    if (++turns == cancelAt) state_.gBatchCancel = true;
}

}  // namespace quillon::testkit
