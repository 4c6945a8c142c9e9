// What connects the main form and the explorer: the commands that move in it, and what the form does on a
// move in the tree.
#include "core/attempt.h"
#include "editor/rec_view.h"

namespace quillon::editor {

using navigation::cBioList;
using navigation::TreeNode;

namespace {

// Sets a flag for as long as the object lives.
class Raised {
public:
    explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
    ~Raised() { flag_ = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

private:
    bool& flag_;
};

}  // namespace

void RecView::Attach(navigation::cExplorer& explorer) {
    explorer_ = &explorer;
    explorer.ItemSelected = [this](const navigation::cExplorer::Item& item) {
        Guarded([&] { SelectExplorerItem(item->qb_id(), !asked_, item->IsInTree()); });
    };
    explorer.CurrentPos = [this](bool first, bool last) {
        SetEnabled("moveprev", !first);
        SetEnabled("movenext", !last);
    };
    explorer.Dropped = [this](TreeNode* moved, TreeNode* newParent, TreeNode* oldParent, bool& cancel) {
        cancel = Dropped(moved, newParent, oldParent);
    };
}

void RecView::MoveBy(Move move) {
    if (explorer_ == nullptr || AskLoseChanges()) return;
    const Raised asked(asked_);
    (explorer_->*move)();
}

void RecView::MoveByRank(RankStep step) {
    if (controls_.taxon.txtKingdom.Text().empty())
        return prompter_.Message("Current Record is not complete (kingdom)");
    const std::string& rank = controls_.taxon.cboRank.Text();
    if (rank.empty()) return prompter_.Message("Current Record is not complete (rank)");
    const int found = StepByRank(*state_.gDatabase, state_.currentTaxon, rank, step);
    if (found == 0 || found == state_.currentTaxon.qb_id) return;
    if (explorer_ == nullptr || AskLoseChanges()) return;
    const Raised asked(asked_);
    explorer_->ListDblClick(found);
}

void RecView::Cut() {
    if (explorer_ == nullptr) return;
    explorer_->Cut();
    SetEnabled("paste", true);
    SetEnabled("undo", false);
}

void RecView::Paste() {
    if (explorer_ != nullptr && !explorer_->Paste()) SetEnabled("undo", true);
}

void RecView::Undo() {
    if (explorer_ != nullptr) explorer_->Undo();
}

void RecView::EnableMoves() {
    if (explorer_ == nullptr) return;
    SetEnabled("moveprev", !explorer_->IsFirstSelected());
    SetEnabled("movenext", !explorer_->IsLastSelected());
}

void RecView::ReflectRealNodePosition() {
    if (explorer_ == nullptr) return;
    explorer_->ReflectRealNodePosition(state_.currentTaxon.qb_id);
    if (!explorer_->CanUndo()) SetEnabled("undo", false);
}

bool RecView::Dropped(const TreeNode* moved, TreeNode* newParent, const TreeNode* oldParent) {
    if (moved == newParent) return true;
    const auto item = explorer_->GetNodeData(moved), target = explorer_->GetNodeData(newParent),
               source = explorer_->GetNodeData(oldParent);
    if (!item || (newParent != nullptr && !target)) return true;
    const ChangeScope scope(controls_.form);
    bool entered = false;
    Attempt(prompter_, [&] {
        if (newParent != nullptr && !newParent->Expanded()) explorer_->ExpandNode(newParent);
        editing_.dropInProgress = false;
        if (target && !move_.ConfirmRanks(*item, *target)) return;
        if (!BringUp(*item)) return;
        move_.Enter(*item, target.get(), source.get());
        entered = true;
    });
    if (!entered) return true;
    SetEnabled("undo", true);
    SetEnabled("paste", true);
    return false;
}

// Shows the name that moves, because the name that was cut may no longer be the current record. False when
// the user stays on an unsaved record.
bool RecView::BringUp(const cBioList& moved) {
    if (moved.qb_id() == state_.currentTaxon.qb_id) return true;
    if (AskLoseChanges()) return false;
    SelectExplorerItem(moved.qb_id(), false);
    return true;
}

}  // namespace quillon::editor
