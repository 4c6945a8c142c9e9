// The deletion of the current taxon, step by step.
#include "editor/deletion.h"

#include "core/vocabulary.h"
#include "editor/unit.h"

namespace quillon::editor {

namespace {

constexpr std::string_view kTitle = "Deleting Name";

constexpr std::string_view kAskSynonym = "All links to this synonym will be deleted. Continue?";
constexpr std::string_view kAskWithSynonyms =
    "This record has one or more synonyms. \r"
    "If you delete this record, they will be\r"
    "deleted too.  Continue?";
constexpr std::string_view kAskName = "Are you sure you want to delete this name?";

}  // namespace

Deletion::Deletion(ApplicationState& state, store::Engine& engine, Prompter& prompter)
    : state_(state), engine_(engine), prompter_(prompter) {}

store::Database& Deletion::Db() const {
    if (!state_.gDatabase) throw store::StoreError(store::ErrorNumber::ObjectClosed, "No DataSet is open.");
    return *state_.gDatabase;
}

bool Deletion::RunUnit(store::QueryDef query, std::string_view title) {
    try {
        Unit unit(engine_);
        query.Execute();
        unit.Commit();
        return true;
    } catch (const store::StoreError& error) {
        prompter_.Message("Failed " + error.Description(), title);
        return false;
    }
}

bool Deletion::RunOnTaxon(std::string_view queryName, std::string_view title) {
    store::QueryDef query = Db().OpenQueryDef(queryName);
    query.Set("qbid", state_.currentTaxon.qb_id);
    return RunUnit(query, title);
}

bool Deletion::AskDelete() {
    std::string_view question = kAskName;
    if (!UsageIsAccepted(state_.currentTaxon.usage)) {
        question = kAskSynonym;
    } else {
        store::QueryDef synonyms = Db().OpenQueryDef("Get Synonyms of Accepted Name");
        synonyms.Set("Accepted_Id", state_.currentTaxon.qb_id);
        if (!synonyms.CreateSnapshot()->Eof()) question = kAskWithSynonyms;
    }
    return prompter_.AskYesNo(question, kTitle);
}

bool Deletion::MayDelete(bool ask) {
    if (state_.currentTaxon.qb_id == 0) {
        prompter_.Message("No Current Record to Delete");
        return false;
    }
    if (state_.currentTaxon.tsn != 0) {
        prompter_.Message("You cannot delete a record with a TSN already assigned.");
        return false;
    }
    store::QueryDef children = Db().OpenQueryDef("Get Children");
    children.Set("parent", state_.currentTaxon.qb_id);
    if (!children.CreateSnapshot()->Eof()) {
        prompter_.Message("All Children must be deleted before this record can be deleted!", kTitle);
        return false;
    }
    return !ask || AskDelete();
}

bool Deletion::DeleteTaxon(bool ask) {
    try {
        if (!MayDelete(ask)) return false;
        DeleteAuthors();
        DeleteReferenceLinks();
        DeleteVernaculars(state_.currentTaxon.qb_id);
        if (!RunOnTaxon("Delete Division Data", kTitle)) return false;
        if (!RunOnTaxon("Delete Jurisdiction Data", kTitle)) return false;
        DeleteSynonymLinks();
        if (!RunOnTaxon("Delete NODC Link", kTitle)) return false;
        DeleteCommentLinks();
        return RunOnTaxon("Delete Taxon", kTitle);
    } catch (const store::StoreError& error) {
        prompter_.Message("Failed " + error.Description(), kTitle);
        return false;
    }
}

void Deletion::DeleteAuthors() {
    Value author, hybridAuthor;
    {
        store::QueryDef query = Db().OpenQueryDef("Get Taxon Data");
        query.Set("qbid", state_.currentTaxon.qb_id);
        const auto taxon = query.CreateSnapshot();
        if (taxon->Eof()) return;
        author = taxon->Get("qb_taxon_author_id");
        hybridAuthor = taxon->Get("hybrid_author_id");
    }
    if (!author.IsNull()) DeleteAuthorIfUnused(author);
    if (!hybridAuthor.IsNull()) DeleteAuthorIfUnused(hybridAuthor);
}

bool Deletion::AuthorIsUsedElsewhere(const Value& authorId) {
    store::QueryDef query = Db().OpenQueryDef("Get Taxon by Author");
    query.Set("authorid", authorId);
    const std::string current = std::to_string(state_.currentTaxon.qb_id);
    for (const auto taxa = query.CreateSnapshot(); !taxa->Eof(); taxa->MoveNext()) {
        if (taxa->Get("qb_id").AsText() != current) return true;
    }
    return false;
}

void Deletion::DeleteAuthorIfUnused(const Value& authorId) {
    try {
        if (AuthorIsUsedElsewhere(authorId)) return;
        const auto author = Db().CreateSnapshot(
            "Select taxon_author_id, kingdom_id from qb_taxon_authors_lookup where  qb_taxon_author_id = " +
            std::to_string(authorId.AsLong()) + ";");
        if (!author->Eof() && author->Get("taxon_author_id").AsLong() != 0) {
            WriteTombstone("taxon_authors_lookup", author->Get("taxon_author_id"), author->Get("kingdom_id"));
        }
        store::QueryDef query = Db().OpenQueryDef("Delete Author");
        query.Set("author", authorId);
        RunUnit(query);
    } catch (const store::StoreError& error) {
        prompter_.Message("Failed " + error.Description());
    }
}

}  // namespace quillon::editor
