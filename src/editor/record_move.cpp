#include "editor/record_move.h"

#include <fmt/format.h>

#include "core/names.h"
#include "core/vocabulary.h"
#include "editor/rec_view_load.h"

namespace quillon::editor {

using navigation::cBioList;

namespace {

struct NameAndTsn {
    std::string name, nameAndAuthor;
    int tsn = 0;
};

NameAndTsn ReadName(store::Database& database, int qb_id) {
    auto query = database.OpenQueryDef("Get Taxon Data");
    const auto row = query.Set("qbid", qb_id).CreateSnapshot();
    if (row->Eof()) return {};
    const std::string name = BuildSciName(NameFieldsOf(*row));
    auto authorQuery = database.OpenQueryDef("Get Author Name");
    const auto author = authorQuery.Set("authorid", row->Get("qb_taxon_author_id")).CreateSnapshot();
    const std::string authorName = author->Eof() ? "" : author->Get("taxon_author").AsText();
    return {name, NameAndAuthor(name, authorName), static_cast<int>(row->Get("tsn").AsLong())};
}

}  // namespace

bool RecordMove::ConfirmRanks(const cBioList& moved, const cBioList& target) {
    if (moved.rank() > target.rank()) return true;
    store::Database& database = *state_.gDatabase;
    return prompter_.AskYesNo(
        fmt::format("Do you really want to move a name of rank '{}' under a name of rank '{}'?",
                    GetRankName(database, moved.rank()), GetRankName(database, target.rank())),
        "Confirm Drop");
}

void RecordMove::Enter(const cBioList& moved, const cBioList* newParent, const cBioList* oldParent) {
    if (cBioList::UsageIsInvalid(moved.usage())) {
        UpdateSynonymLink(newParent, oldParent);
    } else {
        if (UsageIsInvalid(state_.currentTaxon.usage)) return;  // a quadrinomial that the load has rejected
        ChangeTaxonParent(newParent);
    }
    state_.RecordDirty = true;
}

void RecordMove::ChangeTaxonParent(const cBioList* newParent) {
    if (newParent == nullptr) return form_.taxon.EnterParent("", 0, "", 0);
    store::Database& database = *state_.gDatabase;
    form_.taxon.EnterParent(GetRankName(database, newParent->rank()), newParent->rank(),
                            ReadName(database, newParent->qb_id()).name, newParent->qb_id());
}

void RecordMove::UpdateSynonymLink(const cBioList* newAccepted, const cBioList* oldAccepted) {
    const int oldQbId = oldAccepted == nullptr ? 0 : oldAccepted->qb_id();
    if (newAccepted == nullptr) return form_.synonyms.ReplaceAccepted(oldQbId, nullptr);
    const NameAndTsn read = ReadName(*state_.gDatabase, newAccepted->qb_id());
    const SynonymTab::Accepted accepted{newAccepted->qb_id(), read.tsn, read.nameAndAuthor};
    form_.synonyms.ReplaceAccepted(oldQbId, &accepted);
}

}  // namespace quillon::editor
