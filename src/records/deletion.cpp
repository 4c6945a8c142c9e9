#include "records/deletion.h"

#include "core/vocabulary.h"
#include "records/authors.h"
#include "records/links.h"
#include "records/vernaculars.h"

namespace quillon::records {

namespace {

constexpr std::string_view kTitle = "Deleting Name";

constexpr std::string_view kAskSynonym = "All links to this synonym will be deleted. Continue?";
constexpr std::string_view kAskWithSynonyms =
    "This record has one or more synonyms. \r"
    "If you delete this record, they will be\r"
    "deleted too.  Continue?";
constexpr std::string_view kAskName = "Are you sure you want to delete this name?";

bool AskDelete(const RecordStore& records, const DeletedTaxon& taxon) {
    std::string_view question = kAskName;
    if (!UsageIsAccepted(taxon.usage)) {
        question = kAskSynonym;
    } else {
        store::QueryDef synonyms = records.database.OpenQueryDef("Get Synonyms of Accepted Name");
        synonyms.Set("Accepted_Id", taxon.qb_id);
        if (!synonyms.CreateSnapshot()->Eof()) question = kAskWithSynonyms;
    }
    return records.prompter.AskBeforeLoss(question, kTitle);
}

bool MayDelete(const RecordStore& records, const DeletedTaxon& taxon, bool ask) {
    if (taxon.qb_id == 0) {
        records.prompter.Message("No Current Record to Delete");
        return false;
    }
    if (taxon.tsn != 0) {
        records.prompter.Message("You cannot delete a record with a TSN already assigned.");
        return false;
    }
    store::QueryDef children = records.database.OpenQueryDef("Get Children");
    children.Set("parent", taxon.qb_id);
    if (!children.CreateSnapshot()->Eof()) {
        records.prompter.Message("All Children must be deleted before this record can be deleted!", kTitle);
        return false;
    }
    return !ask || AskDelete(records, taxon);
}

void DeleteAuthors(const RecordStore& records, int qb_id) {
    Value author, hybridAuthor;
    {
        store::QueryDef query = records.database.OpenQueryDef("Get Taxon Data");
        query.Set("qbid", qb_id);
        const auto taxon = query.CreateSnapshot();
        if (taxon->Eof()) return;
        author = taxon->Get("qb_taxon_author_id");
        hybridAuthor = taxon->Get("hybrid_author_id");
    }
    if (!author.IsNull()) DeleteAuthorIfUnused(records, author, qb_id);
    if (!hybridAuthor.IsNull()) DeleteAuthorIfUnused(records, hybridAuthor, qb_id);
}

bool RunOnTaxon(const RecordStore& records, std::string_view queryName, int qb_id) {
    store::QueryDef query = records.database.OpenQueryDef(queryName);
    query.Set("qbid", qb_id);
    return records.RunUnit(query, kTitle);
}

bool DeleteWithRows(const RecordStore& records, int qb_id) {
    DeleteAuthors(records, qb_id);
    DeleteReferenceLinks(records, qb_id);
    DeleteVernaculars(records, qb_id);
    if (!RunOnTaxon(records, "Delete Division Data", qb_id)) return false;
    if (!RunOnTaxon(records, "Delete Jurisdiction Data", qb_id)) return false;
    DeleteSynonymLinks(records, qb_id);
    if (!RunOnTaxon(records, "Delete NODC Link", qb_id)) return false;
    DeleteCommentLinks(records, qb_id);
    return RunOnTaxon(records, "Delete Taxon", qb_id);
}

}  // namespace

bool DeleteTaxon(const RecordStore& records, const DeletedTaxon& taxon, bool ask) {
    bool deleted = false;
    records.Reporting(
        [&] { deleted = MayDelete(records, taxon, ask) && DeleteWithRows(records, taxon.qb_id); }, kTitle);
    return deleted;
}

}  // namespace quillon::records
