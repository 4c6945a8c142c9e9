// The one border between a step that can fail and the user: a failure becomes a message, and the program goes
// on.
//
// Every command, and every procedure that carries on after a failed step, runs through Attempt. A procedure
// that must undo something makes a unit of the store inside the step. Nothing here throws what the step
// threw.
#pragma once

#include <exception>
#include <string>
#include <string_view>

#include "core/outside.h"

namespace quillon {

inline constexpr std::string_view kNotEnoughMemory = "Not enough memory.";

// What the user reads about a failure: "Failed " and its description, or kNotEnoughMemory.
std::string FailureText(const std::exception& failure);
// Shows that text as a warning.
void ReportFailure(Prompter& prompter, const std::exception& failure, std::string_view title = {});

// Runs `step`. False when it failed, which has been reported then.
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
