// Which rows the validation keeps out of an export "For Online System". Without a validation the rejected
// lists are empty and every row passes. The tables that a test needs are read once, at its first call.
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
    // Takes gRejectedTaxa and gRejectedDocs as they stand. Each row that a look-up reads is a turn;
    // when the job is canceled the look-up is left unfinished.
    Exclusion(const ApplicationState& state, store::Database& database, Turns turns);

    // The taxon is not rejected.
    bool RowIsExportable(std::int32_t qb_id) const { return !taxa_.Has(qb_id); }
    // Neither the document nor the taxon is rejected.
    bool LinkIsExportable(std::int32_t qb_id, std::string_view prefix, std::int32_t documentId) const {
        return !documents_.Has(prefix, documentId) && RowIsExportable(qb_id);
    }
    // Some taxon that is not rejected has the author, as its author or its hybrid author.
    bool AuthorIsExportable(std::int32_t authorId);
    // The document is not rejected, and a link to it has a taxon other than some rejected one: with two
    // rejected taxa or more every linked document passes.
    bool DocIsExportable(std::string_view prefix, std::int32_t documentId);
    // Some taxon that is not rejected is linked to the comment.
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
