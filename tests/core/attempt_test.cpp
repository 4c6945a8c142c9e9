#include "core/attempt.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "testkit/testkit.h"

namespace quillon {
namespace {

TEST(Attempt, RunsTheStep) {
    testkit::ScriptedPrompter prompter;
    bool ran = false;
    EXPECT_TRUE(Attempt(prompter, [&] { ran = true; }));
    EXPECT_TRUE(ran);
    EXPECT_TRUE(prompter.messages.empty());
}

TEST(Attempt, ReportsWhatFailedUnderTheTitle) {
    testkit::ScriptedPrompter prompter;
    EXPECT_FALSE(Attempt(
        prompter, [] { throw std::runtime_error("Disk full."); }, "Saving"));
    EXPECT_EQ(prompter.messages, std::vector<std::string>{"Failed Disk full."});
    EXPECT_EQ(prompter.titles, std::vector<std::string>{"Saving"});
}

TEST(Attempt, SaysWhenMemoryRunsOut) {
    testkit::ScriptedPrompter prompter;
    EXPECT_FALSE(Attempt(prompter, [] { throw std::bad_alloc(); }));
    EXPECT_EQ(prompter.messages, std::vector<std::string>{"Not enough memory."});
}

}  // namespace
}  // namespace quillon
