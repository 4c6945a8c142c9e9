#include "validation/validation_log.h"

#include <utility>

namespace quillon::validation {

ValidationLog::ValidationLog(ApplicationState& state, FindingSink sink)
    : state_(state), sink_(std::move(sink)) {
    for (const int qb_id : state_.gRejectedTaxa) rejectedTaxa_.Add(qb_id);
    rejectedDocs_.insert(state_.gRejectedDocs.begin(), state_.gRejectedDocs.end());
}

bool ValidationLog::TakeHeading() {
    return std::exchange(state_.gRecordHeaderPending, false);
}

bool ValidationLog::TakeDocumentHeading() {
    if (!TakeHeading()) return false;
    if (state_.gValidatingForExport && !rejectedTaxa_.Has(state_.gLogQbId)) RejectTaxon();
    return true;
}

void ValidationLog::RejectTaxon() {
    state_.gRejectedTaxa.push_back(state_.gLogQbId);
    rejectedTaxa_.Add(state_.gLogQbId);
}

void ValidationLog::Log(Rule rule, Subject subject, std::string heading, std::string message) {
    state_.gErrorsOccurred = true;
    sink_({rule, std::move(subject), std::move(heading), std::move(message)});
}

void ValidationLog::LogTaxonError(Rule rule, const TaxonRow& row, std::string message) {
    std::string heading;
    if (TakeHeading()) {
        heading = row.Heading();
        if (state_.gValidatingForExport) RejectTaxon();
    }
    Log(rule, row.AsSubject(), std::move(heading), std::move(message));
}

void ValidationLog::LogAuthorError(Rule rule, const AuthorRow& row, std::string message) {
    Log(rule, row.AsSubject(), TakeHeading() ? row.Heading() : std::string(), std::move(message));
}

void ValidationLog::RememberRejectedDoc(std::string_view prefix, std::int32_t id) {
    if (!state_.gValidatingForExport || !rejectedDocs_.emplace(prefix, id).second) return;
    state_.gRejectedDocs.emplace_back(prefix, id);
}

}  // namespace quillon::validation
