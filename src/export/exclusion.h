// Tests which rows an export "For Online System" omits because validation rejected them. Without a validation
// the rejected lists are empty and every row passes. Each test reads the tables that it needs at its first
// call.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "core/application_state.h"
#include "core/turns.h"
#include "selection/selected_taxa.h"
#include "store/engine.h"

namespace quillon::exporting {

using selection::DocumentSet;
using selection::IdSet;

class Exclusion {
public:
    // Copies gRejectedTaxa and gRejectedDocs. Each row that a look-up reads is a turn; when the job is
    // canceled the look-up stops.
    Exclusion(const ApplicationState& state, store::Database& database, Turns turns);

    // True when the taxon is not rejected.
    bool RowIsExportable(std::int32_t qb_id) const { return !taxa_.Has(qb_id); }
    // True when neither the document nor the taxon is rejected.
    bool LinkIsExportable(std::int32_t qb_id, std::string_view prefix, std::int32_t documentId) const {
        return !documents_.Has(prefix, documentId) && RowIsExportable(qb_id);
    }
    // True when a taxon that is not rejected has the author, as author or hybrid author.
    bool AuthorIsExportable(std::int32_t authorId);
    // True when the document is not rejected, and a link to it has a taxon other than some rejected one: with
    // two or more rejected taxa every linked document passes.
    bool DocIsExportable(std::string_view prefix, std::int32_t documentId);
    // True when a taxon that is not rejected is linked to the comment.
    bool CommentIsExportable(std::int32_t commentId);

private:
    bool LinkCounts(std::int32_t qb_id) const { return taxa_.Count() > 1 || !taxa_.Has(qb_id); }
    void ReadAuthors();
    void ReadComments();
    void ReadDocuments(std::string_view table);

    store::Database& database_;
    Turns turns_;
    IdSet taxa_;
    DocumentSet documents_;
    std::optional<IdSet> goodAuthors_, goodComments_;
    std::optional<DocumentSet> goodDocuments_;
};

}  // namespace quillon::exporting
