// The alphabetical list of the explorer: choosing a row, and the typed search.
#include <utility>

#include "core/text.h"
#include "core/wait_cursor.h"
#include "navigation/explorer.h"

namespace quillon::navigation {

namespace {

constexpr std::string_view kAcceptedNamesSql =
    "PARAMETERS theId Long; SELECT s.qb_id_accepted FROM qb_synonym_links AS s INNER JOIN "
    "qb_taxonomic_units AS t ON s.qb_id_accepted = t.qb_id WHERE s.qb_id = [theId]";

// The text without its last character.
void ChopCharacter(std::string& text) {
    while (!text.empty() && (static_cast<unsigned char>(text.back()) & 0xC0) == 0x80) text.pop_back();
    if (!text.empty()) text.pop_back();
}

}  // namespace

void cExplorer::MoveList(int id) {
    listId_ = id;
    if (ListMoved) ListMoved(id);
}

void cExplorer::ListClick(ListArea area, int id) {
    if (area == ListArea::Text) typed_.clear();
    if (area == ListArea::List) ListDblClick(id);
}

// Those that are there: a link may outlive its accepted name.
std::vector<int> cExplorer::AcceptedNamesOf(int id) const {
    std::vector<int> accepted;
    auto query = state_.gDatabase->CreateQueryDef("", kAcceptedNamesSql);
    for (const auto row = query.Set("theId", id).OpenRecordset(store::RecordsetType::ForwardOnly);
         !row->Eof(); row->MoveNext()) {
        accepted.push_back(static_cast<int>(row->At(0).AsLong()));
    }
    return accepted;
}

void cExplorer::SetListId(int id) {
    listId_ = id;
    isSearching_ = false;
}

bool cExplorer::ListDblClick(int id) {
    if (!state_.gDatabase) return false;
    listId_ = id;
    const WaitCursor wait(prompter_);
    try {
        Quest quest{id, {std::nullopt}};
        const std::vector<int> accepted = AcceptedNamesOf(id);
        quest.ways.insert(quest.ways.end(), accepted.rbegin(), accepted.rend());
        return BeginQuest(std::move(quest));
    } catch (const store::StoreError&) {
        return false;
    }
}

void cExplorer::ListKeyPress(std::string_view key) {
    if (key == "\r") {
        ListDblClick(listId_);
        return ListTimer();
    }
    if (key == "\b") {
        if (typed_.empty()) return;
        ChopCharacter(typed_);
        SearchTyped(true);
    } else if (!key.empty()) {
        typed_ += key;
        SearchTyped(false);
    }
    if (StartListTimer) StartListTimer();
}

// A longer text is searched from the current row on, so that the selection stays on a row that still matches.
// A shortened text is searched from the first row.
void cExplorer::SearchTyped(bool onlyBefore) {
    const bool fromTheFirst = CharacterCount(typed_) == 1 || listId_ == 0;
    list_.BeginSearch(typed_,
                      onlyBefore     ? TaxonList::Among::Before
                      : fromTheFirst ? TaxonList::Among::All
                                     : TaxonList::Among::From,
                      listId_);
    isSearching_ = true;
    searchesBefore_ = onlyBefore;
    if (list_.SearchOn(kRowsInAPart)) EndSearch();
    DoRestLater();
}

// A search may last longer than the typed text.
void cExplorer::EndSearch() {
    isSearching_ = false;
    const std::optional<int> found = list_.Found();
    if (found && !typed_.empty()) lastBookmark_ = found;
    const std::optional<int> target = found || searchesBefore_ ? found : lastBookmark_;
    if (target) MoveList(*target);
}

void cExplorer::ListTimer() {
    typed_.clear();
    lastBookmark_.reset();
}

}  // namespace quillon::navigation
