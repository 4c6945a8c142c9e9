// All rules report here. It adds the heading to the first finding of a record, updates the run state and the
// lists of records that an export must omit, and passes each finding to a sink.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "core/application_state.h"
#include "selection/id_set.h"
#include "validation/findings.h"
#include "validation/rows.h"

namespace quillon::validation {

class ValidationLog {
public:
    ValidationLog(ApplicationState& state, FindingSink sink);

    // Begins the next record, whose first finding gets a heading.
    void BeginRecord() { state_.gRecordHeaderPending = true; }
    // Sets the taxon that findings reject, including findings on documents.
    void SetTaxon(std::int32_t qb_id) { state_.gLogQbId = qb_id; }

    // Reports a finding on a taxon. The first one rejects the taxon from an export.
    void LogTaxonError(Rule rule, const TaxonRow& row, std::string message);
    // Reports a finding on a document, a link, a vernacular or a jurisdiction. The first one of a row rejects
    // the taxon set last.
    template <typename Row>
    void LogDocumentError(Rule rule, const Row& row, std::string message) {
        Log(rule, row.AsSubject(), TakeDocumentHeading() ? row.Heading() : std::string(), std::move(message));
    }
    // Reports a finding on an author; it rejects nothing.
    void LogAuthorError(Rule rule, const AuthorRow& row, std::string message);

    // Adds a document to those that an export omits; duplicates are ignored.
    void RememberRejectedDoc(std::string_view prefix, std::int32_t id);

private:
    // True when the heading of the record must be printed now.
    bool TakeHeading();
    bool TakeDocumentHeading();
    void RejectTaxon();
    void Log(Rule rule, Subject subject, std::string heading, std::string message);

    ApplicationState& state_;
    FindingSink sink_;
    // The lists of the run state as sets.
    selection::IdSet rejectedTaxa_;
    std::set<std::pair<std::string, int>> rejectedDocs_;
};

}  // namespace quillon::validation
