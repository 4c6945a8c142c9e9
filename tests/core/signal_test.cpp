// An event with several listeners.
#include "core/signal.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon {
namespace {

TEST(Signal, CallsAllListenersInTheirOrder) {
    Signal<int> signal;
    std::string events;
    signal.Connect([&](int value) { events += "first " + std::to_string(value) + ";"; });
    const auto second = signal.Connect([&](int value) { events += "second " + std::to_string(value) + ";"; });
    signal(1);
    EXPECT_EQ(events, "first 1;second 1;");
    signal.Disconnect(second);
    signal(2);
    EXPECT_EQ(events, "first 1;second 1;first 2;");
}

TEST(Signal, AListenerMayDisconnectItself) {
    Signal<> signal;
    int calls = 0;
    std::uint64_t number = 0;
    number = signal.Connect([&] {
        ++calls;
        signal.Disconnect(number);
    });
    signal.Connect([&] { ++calls; });
    signal();
    signal();
    EXPECT_EQ(calls, 3);
}

}  // namespace
}  // namespace quillon
