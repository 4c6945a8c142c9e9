#include "core/attempt.h"

#include <new>

namespace quillon {

std::string FailureText(const std::exception& failure) {
    if (dynamic_cast<const std::bad_alloc*>(&failure) != nullptr) return std::string(kNotEnoughMemory);
    return std::string("Failed ") + failure.what();
}

void ReportFailure(Prompter& prompter, const std::exception& failure, std::string_view title) {
    prompter.WarningMessage(FailureText(failure), title);
}

}  // namespace quillon
