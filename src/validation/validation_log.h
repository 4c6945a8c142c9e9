// Where every rule reports: the heading above the first finding of a record, the marks of the run state, and
// the lists of what an export must leave out. What is reported goes on to a sink as data.
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

    // The next record: its first finding gets its heading.
    void BeginRecord() { state_.gRecordHeaderPending = true; }
    // The taxon that findings reject from now on, those of documents too.
    void SetTaxon(std::int32_t qb_id) { state_.gLogQbId = qb_id; }

    // A finding on a taxon. The first one rejects the taxon from an export.
    void LogTaxonError(Rule rule, const TaxonRow& row, std::string message);
    // A finding on a document, a link, a vernacular or a jurisdiction. The first one of a row rejects the
    // taxon set last.
    template <typename Row>
    void LogDocumentError(Rule rule, const Row& row, std::string message) {
        Log(rule, row.AsSubject(), TakeDocumentHeading() ? row.Heading() : std::string(), std::move(message));
    }
    // A finding on an author; it rejects nothing.
    void LogAuthorError(Rule rule, const AuthorRow& row, std::string message);

    // Leaves a document out of the export, once however often it is called.
    void RememberRejectedDoc(std::string_view prefix, std::int32_t id);

private:
    // True when the heading of the record is due.
    bool TakeHeading();
    bool TakeDocumentHeading();
    void RejectTaxon();
    void Log(Rule rule, Subject subject, std::string heading, std::string message);

    ApplicationState& state_;
    FindingSink sink_;
    // The lists of the run state, for looking up.
    selection::IdSet rejectedTaxa_;
    std::set<std::pair<std::string, int>> rejectedDocs_;
};

}  // namespace quillon::validation
