// Deleting a taxon with all that hangs on it, and the tombstones that tell the authority what is gone.
//
// A key that exists only locally (an authority's id that is Null or 0) leaves no tombstone. Each statement is
// a unit of its own: what was deleted before a failure stays deleted. The procedures work on currentTaxon of
// the state.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/application_state.h"
#include "core/outside.h"
#include "store/engine.h"

namespace quillon::editor {

class Deletion {
public:
    Deletion(ApplicationState& state, store::Engine& engine, Prompter& prompter);

    // Adds a row to db_tombstone; a key is stored only when all before it are given. Reports nothing.
    void WriteTombstone(std::string_view table_name, const Value& pk1, const std::optional<Value>& pk2 = {},
                        const std::optional<Value>& pk3 = {}, const std::optional<Value>& pk4 = {});
    // True when the row was stored; WriteTombstone for callers that report a failure themselves.
    bool TryWriteTombstone(std::string_view table_name, const Value& pk1,
                           const std::optional<Value>& pk2 = {}, const std::optional<Value>& pk3 = {},
                           const std::optional<Value>& pk4 = {});
    // Forgets a key that came back. Text is compared trimmed and case-sensitive.
    void RemoveTombstone(std::string_view table_name, const Value& pk1, const std::optional<Value>& pk2 = {},
                         const std::optional<Value>& pk3 = {}, const std::optional<Value>& pk4 = {});

    // Deletes the current taxon; with `ask` after a question. True only when everything went.
    bool DeleteTaxon(bool ask);

    // Those below tell a failure by a message and return. A comment, author or document goes with its last
    // link.
    void DeleteCommentLink(int commentId);
    void DeleteAuthorIfUnused(const Value& authorId);
    void DeleteReferenceLink(int docId, std::string_view prefix);
    // `value` is the document's id, "|", and the qb_vern_id.
    void DeleteVernRefLink(std::string_view prefix, std::string_view value);
    void DeleteComment(int id);
    void DeleteExpert(int id);
    void DeletePublication(int id);
    void DeleteOtherSource(int id);
    // The links in which the current taxon is the synonym, or the accepted name. The names themselves stay.
    void DeleteSynonymLinks();
    void DeleteSynonymsOfAccepted();
    // All vernaculars of the taxon with their links. With `vernId` those whose qb_vern_id is another than
    // that.
    void DeleteVernaculars(int qbId, std::optional<int> vernId = {});

private:
    struct Document;
    struct Link;
    store::Database& Db() const;
    // Runs one statement as a unit of its own; on a failure says so under `title` and gives false.
    bool RunUnit(store::QueryDef query, std::string_view title = {});
    bool RunOnTaxon(std::string_view queryName, std::string_view title = {});
    bool MayDelete(bool ask);
    bool AskDelete();
    void DeleteAuthors();
    void DeleteReferenceLinks();
    void DeleteCommentLinks();
    bool AuthorIsUsedElsewhere(const Value& authorId);
    void DeleteDocument(const Document& document, int id);
    void DeleteDocumentOf(std::string_view prefix, int docId);
    void WriteLinkTombstone(const Link& link);
    void WriteSynonymTombstones(std::string_view keyColumn);

    ApplicationState& state_;
    store::Engine& engine_;
    Prompter& prompter_;
};

}  // namespace quillon::editor
