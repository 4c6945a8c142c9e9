#include "validation/validation_log.h"

#include <utility>

namespace quillon::validation {

namespace {

std::string KeyOf(std::string_view prefix, std::int32_t id) {
    return std::to_string(id) + std::string(prefix);
}

}  // namespace

ValidationLog::ValidationLog(ApplicationState& state, FindingSink sink)
    : state_(state), sink_(std::move(sink)) {
    rejectedTaxa_.insert(state_.gRejectedTaxa.begin(), state_.gRejectedTaxa.end());
    for (const auto& [prefix, id] : state_.gRejectedDocs) rejectedDocs_.insert(KeyOf(prefix, id));
}

bool ValidationLog::TakeHeading() {
    return std::exchange(state_.gRecordHeaderPending, false);
}

bool ValidationLog::TakeDocumentHeading() {
    if (!TakeHeading()) return false;
    if (state_.gValidatingForExport && rejectedTaxa_.insert(state_.gLogQbId).second)
        state_.gRejectedTaxa.push_back(state_.gLogQbId);
    return true;
}

void ValidationLog::Log(Rule rule, Subject subject, std::string heading, std::string message) {
    state_.gErrorsOccurred = true;
    sink_({rule, std::move(subject), std::move(heading), std::move(message)});
}

void ValidationLog::LogTaxonError(Rule rule, const TaxonRow& row, std::string message) {
    std::string heading;
    if (TakeHeading()) {
        heading = row.Heading();
        if (state_.gValidatingForExport) {
            state_.gRejectedTaxa.push_back(state_.gLogQbId);
            rejectedTaxa_.insert(state_.gLogQbId);
        }
    }
    Log(rule, row.AsSubject(), std::move(heading), std::move(message));
}

void ValidationLog::LogAuthorError(Rule rule, const AuthorRow& row, std::string message) {
    Log(rule, row.AsSubject(), TakeHeading() ? row.Heading() : std::string(), std::move(message));
}

void ValidationLog::RememberRejectedDoc(std::string_view prefix, std::int32_t id) {
    if (!state_.gValidatingForExport || !rejectedDocs_.insert(KeyOf(prefix, id)).second) return;
    state_.gRejectedDocs.emplace_back(prefix, id);
}

}  // namespace quillon::validation
