// Turns the failure of a step into a message to the user, after which the program continues.
//
// Every command, and every procedure that continues after a failed step, runs the step through Attempt. A
// step that must be undone on failure opens a unit of the store. Attempt never throws what the step threw.
#pragma once

#include <exception>
#include <string>
#include <string_view>

#include "core/outside.h"

namespace quillon {

inline constexpr std::string_view kNotEnoughMemory = "Not enough memory.";

// The message for a failure: "Failed " and its description, or kNotEnoughMemory.
std::string FailureText(const std::exception& failure);
// Shows that text as a warning.
void ReportFailure(Prompter& prompter, const std::exception& failure, std::string_view title = {});

// Runs `step`. Reports its failure and then returns false.
template <typename Step>
bool Attempt(Prompter& prompter, const Step& step, std::string_view title = {}) {
    try {
        step();
        return true;
    } catch (const std::exception& failure) {
        ReportFailure(prompter, failure, title);
        return false;
    }
}

}  // namespace quillon
