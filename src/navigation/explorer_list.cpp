// The alphabetical list of the explorer: choosing a row, and finding one by typing.
#include "core/text.h"
#include "navigation/explorer.h"

namespace quillon::navigation {

namespace {

constexpr std::string_view kAcceptedNamesSql =
    "PARAMETERS theId Long; SELECT qb_id_accepted FROM qb_synonym_links WHERE qb_id = [theId]";

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

std::vector<int> cExplorer::AcceptedNamesOf(int id) const {
    std::vector<int> accepted;
    auto query = state_.gDatabase->CreateQueryDef("", kAcceptedNamesSql);
    for (const auto row = query.Set("theId", id).OpenRecordset(store::RecordsetType::ForwardOnly);
         !row->Eof(); row->MoveNext()) {
        accepted.push_back(static_cast<int>(row->At(0).AsLong()));
    }
    return accepted;
}

void cExplorer::ListDblClick(int id) {
    if (!state_.gDatabase) return;
    listId_ = id;
    prompter_.WaitCursor(true);
    TreeNode* node = nullptr;
    try {
        const auto accepted = AcceptedNamesOf(id);
        if (accepted.empty()) node = ExpandContainingSubtree(id);
        for (const int under : accepted) {
            if (TreeNode* found = ExpandContainingSubtree(id, under)) node = found;
        }
        // A name that is linked as a synonym though it has a parent stands under the parent.
        if (node == nullptr) node = ExpandContainingSubtree(id);
    } catch (const store::StoreError&) {
    }
    prompter_.WaitCursor(false);
    if (node == nullptr) return;
    HiliteNode(node);
    if (ItemSelected) ItemSelected(nodes_.ItemOf(node));
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

// A longer text is looked for from where the list stands, so that typing on stays on a row that still
// matches. A shortened one leads back to the first row that matches.
void cExplorer::SearchTyped(bool onlyBefore) {
    std::optional<int> found;
    if (onlyBefore) {
        found = list_.FindBefore(typed_, listId_);
    } else if (CharacterCount(typed_) == 1 || listId_ == 0) {
        found = list_.Find(typed_);
    } else {
        found = list_.FindFrom(typed_, listId_);
    }
    if (found) lastBookmark_ = found;
    if (found || (!onlyBefore && lastBookmark_)) MoveList(*lastBookmark_);
}

void cExplorer::ListTimer() {
    typed_.clear();
    lastBookmark_.reset();
}

}  // namespace quillon::navigation
