// The explorer: the taxa of the DataSet as a tree, loaded as it is opened, and as an alphabetical list, kept
// in sync. Its events report the user's choices. It changes no data: it proposes a move by Dropped, and moves
// the node unless that is cancelled.
//
// It works on a TreeControl and a TaxonList, which a window mirrors; it uses no messages or widgets. Nodes
// belong to the tree; an item is the taxon of a node.
//
// Long work is done in parts: the first at once, the others by Continue(), which a window calls while it is
// idle. So the window stays responsive when a node with hundreds of thousands of children opens.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/outside.h"
#include "navigation/bio_list.h"
#include "navigation/child_reader.h"
#include "navigation/node_table.h"
#include "navigation/taxon_list.h"
#include "navigation/tree_control.h"

namespace quillon::navigation {

// The only child of a node whose children have not been read.
inline constexpr std::string_view kPlaceholder = "dummy99";

class cExplorer {
public:
    using Item = std::shared_ptr<cBioList>;
    enum class Relationship { Child, NextSibling };
    // The part of the list that was clicked.
    enum class ListArea { Other = 0, Text = 1, List = 2 };
    // The mouse pointer while a node is dragged: "dragdrop" where it may be dropped, "nodrop" elsewhere.
    enum class DropPicture { None, DragDrop, NoDrop };

    cExplorer(ApplicationState& state, store::Engine& engine, Prompter& prompter);
    cExplorer(const cExplorer&) = delete;
    cExplorer& operator=(const cExplorer&) = delete;

    TreeControl& TreeV() { return tree_; }
    TaxonList& ListV() { return list_; }
    // Shows the tree or the list; the other one is kept up to date. Raises CurrentPos on a change.
    void SetTreeVisible(bool visible);
    bool TreeVisible() const { return treeVisible_; }
    // The taxon of the list's current row; 0 for none.
    int ListId() const { return listId_; }
    // The user moved in the list without choosing a row.
    void SetListId(int id);

    // Fills tree and list from the open DataSet, or empties them when none is open. A cut node stays cut if
    // the DataSet is the same.
    void Init();
    // Empties the tree and adds the root.
    void SetRoot(Item root);
    const Item& Root() const { return root_; }
    // Adds a node under `relative`, or right after it, or last at the top level. A node with children gets
    // the placeholder. nullptr when `relative` is not a node of the explorer.
    TreeNode* AddNode(std::string_view text, Item item, std::int64_t childCount, TreeNode* relative = nullptr,
                      Relationship relationship = Relationship::Child);
    void ClearNodes();
    // The user opens or closes a node; both raise CurrentPos. Its children are read the first time, in parts
    // when there are many.
    void ExpandNode(TreeNode* node);
    void CollapseNode(TreeNode* node);
    // Opens everything below a node, level by level, up to kMostOpened nodes. Note reports when more are
    // left; a second call continues there.
    void ExpandBelow(TreeNode* node);
    static constexpr std::size_t kMostOpened = 2000;
    // False when its only child is the placeholder.
    static bool NodeHasBeenExpanded(const TreeNode& node);

    // Does one part of the remaining work; true while there is more. Reads at most about kRowsInAPart rows,
    // and nothing while no DataSet is open or a job runs.
    bool Continue();
    bool IsBusy() const;
    static constexpr std::size_t kRowsInAPart = 2000;

    // nullptr when the node does not belong to the explorer.
    Item GetNodeData(const TreeNode* node) const { return nodes_.ItemOf(node); }
    // Replaces the item of the node of a saved record.
    void UpdateNodeData(TreeNode* node, Item item) { nodes_.Replace(node, std::move(item)); }
    // 0 when the node has no item.
    int FindIdOfNode(const TreeNode* node) const;
    // The first loaded node of the taxon; with `accepted` the one under that taxon. nullptr when there is
    // none.
    TreeNode* FindNodeWithId(int id, std::optional<int> accepted = {}) const;
    TreeNode* FindNodeWithIdIndexed(int id, NodeTable::Place& start, std::optional<int> accepted,
                                    Item& item) const;
    // Opens the path to a taxon and returns its node; nullptr when there is no path, or one longer than
    // kDeepestPath. Loads everything at once.
    static constexpr std::size_t kDeepestPath = 5000;
    TreeNode* ExpandContainingSubtree(int id, std::optional<int> accepted = {});
    // The taxa under which a synonym has its nodes. Throws StoreError.
    std::vector<int> AcceptedNamesOf(int id) const;
    // Selects a node and scrolls to it.
    void HiliteNode(TreeNode* node);

    // True when `candidate` is an ancestor of `node`. False for nullptr.
    static bool IsNodeAncestor(const TreeNode* candidate, const TreeNode* node);
    // The next and previous nodes among the visible rows; at either end the node itself.
    TreeNode* GetNextNode(TreeNode* node) const;
    TreeNode* GetPreviousNode(TreeNode* node) const;
    // For a node of the top level, the root.
    TreeNode* GetParentNode(const TreeNode* node) const;
    // The last visible row among the node's siblings and their subtrees.
    TreeNode* GetLastDisplayedNode(TreeNode* node) const;

    // The form stays on its record although another was chosen: selects that record in tree and list again,
    // or for 0, a new record, the one shown before it.
    void Reselect(int qb_id);
    // True when the form shows this taxon.
    bool IsRecord(int qb_id) const { return state_.currentTaxon.qb_id == qb_id; }

    // Move the selection in the visible view and raise ItemSelected, then CurrentPos. Do nothing at the end.
    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrev();
    void MoveParent();
    // In the visible view; false when nothing is selected.
    bool IsFirstSelected();
    bool IsLastSelected();

    // Moves a node under another, or to the top level for nullptr, before the first child whose text in lower
    // case is greater. The parent should have been opened, because its placeholder counts as a child. Returns
    // false and does nothing for the present parent and for one within the node's subtree. The new parent
    // becomes the accepted taxon of a synonym.
    bool MoveAndKeepSorted(TreeNode* node, TreeNode* newParent);
    // For a new record: the item of the sibling after which `text` belongs. Checks the siblings from the last
    // one back to the second after the node; returns the node's own item when none of them is less than the
    // text.
    Item InsertSiblingWhere(std::string_view text, const TreeNode* node) const;
    void RemoveSubtree(TreeNode* node);
    // For a deleted record: removes all nodes of a taxon, or those under one accepted taxon.
    void RemoveNodes(int id, std::optional<int> accepted = {});
    // Read changed names again: those of all nodes (in parts), or that of the first node of a taxon. Keep the
    // order.
    void RefreshNames();
    void RefreshName(int id);
    // A new record has been saved: adds it to the list, and to the tree as the selected node if its parent,
    // or an accepted name of it, is loaded.
    void RecordAdded(int qb_id);
    // A stored record has been saved: updates its name, its place in the tree and its row in the list.
    void RecordChanged(int qb_id);
    // The record has been deleted: removes its nodes and its row, and selects the node that was above it.
    // Raises no event.
    void RecordRemoved(int qb_id);
    // Moves the nodes of a taxon back under its stored parents.
    void ReflectRealNodePosition(int qb_id);

    // Marks the selected node for the next Paste.
    void Cut();
    bool IsTaxonCut(int id) const;
    // Moves the cut node under the selected one, or back, as a drop there would. True when that was cancelled
    // or there is nothing to move.
    bool Paste();
    // Undoes the last move, by Paste or by the mouse; a second call repeats it. A move that
    // ReflectRealNodePosition() has undone no longer counts.
    bool Undo();
    bool CanUndo() const { return cut_.item && cut_.moved; }

    // The mouse over the tree. `node` is the node under it, or nullptr; lengths are in twips.
    void DragMouseDown(TreeNode* node);
    // True when this begins a drag.
    bool DragMouseMove(bool leftHeld);
    void DragOver(int x, int y, int height, TreeNode* node);
    void Drop();
    void CancelDrag();
    bool IsDragging() const { return drag_.dragging; }
    TreeNode* DragNode() const { return drag_.node; }
    DropPicture Picture() const { return drag_.picture; }
    // TreeVTimer fired: one line of scrolling.
    void TreeTimer();

    // A click on a node of the tree.
    void NodeClick(TreeNode* node);
    // A click on a row of the list, a double click, and a key: a character, "\r" for Return, "\b" for
    // Backspace. A taxon that cannot be reached in the tree is chosen with an item that is not in the tree.
    void ListClick(ListArea area, int id);
    // False when there is no such taxon.
    bool ListDblClick(int id);
    void ListKeyPress(std::string_view key);
    // ListVTimer fired: the typed text ends.
    void ListTimer();

    std::function<void(const Item& item)> ItemSelected;
    std::function<void(bool first, bool last)> CurrentPos;
    std::function<void(TreeNode* node)> Expand;
    // Proposes a move; a parent of nullptr is the top level. Without a listener nothing moves.
    std::function<void(TreeNode* moved, TreeNode* newParent, TreeNode* oldParent, bool& Cancel)> Dropped;

    // Services of the window: call Continue() while idle, until it returns false; show a line of text;
    // restart ListVTimer; start or stop TreeVTimer; scroll the tree by one line, -1 for up; make another
    // taxon the current row of the list.
    std::function<void()> StartIdleTimer;
    std::function<void(std::string_view text)> Note;
    std::function<void()> StartListTimer;
    std::function<void(bool run)> RunTreeTimer;
    std::function<void(int lines)> ScrollTree;
    std::function<void(int id)> ListMoved;

private:
    struct DragState {
        bool dragging = false;
        TreeNode* node = nullptr;
        TreeNode* lastHover = nullptr;
        int lastX = 0, lastY = 0;
        int scroll = 0;  // -1 up, 1 down
        DropPicture picture = DropPicture::None;
    };
    // The node to paste, and afterwards the move to undo. Nodes are found by their items each time, because
    // they may have been rebuilt; an empty parent is the top level.
    struct CutState {
        Item item, oldParent, target;
        bool moved = false;
    };
    struct CutNodes {
        TreeNode* node = nullptr;
        TreeNode* other = nullptr;
        bool found = false;
    };
    // Children that are being read. `node` is nullptr for the top level.
    struct Load {
        TreeNode* node;
        Item item;
        std::unique_ptr<ChildReader> reader;
        cBioList::Collection waiting;  // read, but not in the tree yet
    };
    // The path to a taxon that was chosen in the list, opened node by node.
    struct Quest {
        int id;
        // The accepted taxa to search under, in reverse order; an empty value stands for the parent.
        std::vector<std::optional<int>> ways;
        bool isChosen = false;  // the event has been raised
        std::optional<int> under = {};
        std::vector<int> path = {};  // from the taxon up to one with a loaded node
        bool isFound = false;
        std::optional<int> foundUnder = {};
    };
    struct Choice {
        int id = 0, accepted = 0;
    };

    int ParentOf(int id, std::optional<int> accepted) const;
    bool Open(TreeNode* node);
    void BeginLoad(TreeNode* node, const Item& item);
    bool IsLoading(const TreeNode* node) const;
    void LoadPart(std::size_t place);
    void InsertWaiting(Load& load);
    std::string_view PlaceholderOf(const cBioList& item, const TreeNode* parent) const;
    void FinishLoads();
    void OpenPart();
    void RefreshPart();
    bool MayRead() const;
    void DoRestLater();
    std::vector<int> PathTo(int id, std::optional<int> accepted) const;
    bool FollowPath(Quest& quest, std::size_t& openings);
    bool Follow(Quest& quest, std::size_t openings);
    bool EndQuest(const Quest& quest);
    bool BeginQuest(Quest quest);
    void Choose(const Item& item);
    void MoveTo(TreeNode* node);
    void MoveListTo(int id);
    void RaiseCurrentPos();
    bool ProposeMove(TreeNode* node, TreeNode* newParent, TreeNode* oldParent);
    TreeNode* FindAnew(const Item& item) const;
    CutNodes FindCutNodes(const Item& other) const;
    bool CanDropOn(TreeNode* target);
    bool MayDrop(const TreeNode* target) const;
    void ScrollWhileDragging(int direction);
    bool Reparent(TreeNode* node, TreeNode* newParent);
    void TakeUnder(TreeNode* node, TreeNode* parent);
    void TakeUnderParent(int qb_id, int parent);
    void TakeUnderAccepted(int qb_id);
    void MoveList(int id);
    void SearchTyped(bool onlyBefore);
    void EndSearch();
    void HiliteAgain(int qb_id);
    std::vector<int> SynonymsOf(int id) const;
    std::vector<int> SynonymsUnder(int qb_id) const;
    Item NewItem(int qb_id) const;
    std::size_t SortedRow(std::string_view text, const TreeNode* parent) const;
    TreeNode* InsertSorted(Item item, TreeNode* parent);
    TreeNode* AddUnder(int qb_id, TreeNode* parent);

    ApplicationState& state_;
    Prompter& prompter_;
    BioListSource source_;
    TreeControl tree_;
    TaxonList list_;
    NodeTable nodes_;
    Item root_;
    bool treeVisible_ = true;
    DragState drag_;
    CutState cut_;
    std::vector<Load> loads_;         // the last one continues first
    std::deque<TreeNode*> openings_;  // still to be opened by ExpandBelow()
    std::size_t opened_ = 0;
    std::string openedBelow_;
    std::vector<int> stale_;  // taxa whose names must be read again
    std::optional<Quest> quest_;
    Choice stood_;  // the last choice that the form accepted
    int listId_ = 0;
    bool isSearching_ = false, searchesBefore_ = false;
    std::string typed_;
    std::optional<int> lastBookmark_;  // the taxon of the last match
};

}  // namespace quillon::navigation
