#include "import/import_failures.h"

#include <utility>

#include "core/text.h"

namespace quillon::importing {

namespace {

// The number of characters kept of a line.
constexpr std::size_t kHeadOfLine = 200;

}  // namespace

std::string TextOf(const Failure& failure) {
    if (failure.number == 0) return failure.sentence;
    return failure.sentence + " (line " + std::to_string(failure.number) + ": " + failure.line + ")";
}

FailurePrompter::FailurePrompter(const ApplicationState& state, FailureSink sink)
    : state_(state), sink_(std::move(sink)) {}

void FailurePrompter::SetLine(std::int64_t number, std::string_view line) {
    number_ = number;
    line_ = line;
}

void FailurePrompter::Message(std::string_view text, std::string_view) {
    if (state_.gBatchCancel) return;
    sink_({std::string(text), number_, std::string(LeftCharacters(line_, kHeadOfLine))});
}

}  // namespace quillon::importing
