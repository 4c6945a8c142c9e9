// The explorer: the taxa of the DataSet as a tree that loads as it is opened, and as an alphabetical list,
// kept in step. Its events report what the user chose. It changes no data: it proposes a move by Dropped, and
// the tree follows when nobody cancels it.
//
// It works on a TreeControl and a TaxonList, which a window mirrors; it shows no messages and knows no
// widget. Nodes belong to the tree; an item is the taxon of a node.
//
// What takes long is done in parts: the first one at once, the others by Continue(), which a window calls
// while it is idle. So a node with hundreds of thousands of children opens without holding up the window.
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

// The one child of a node whose children have not been fetched.
inline constexpr std::string_view kPlaceholder = "dummy99";

class cExplorer {
public:
    using Item = std::shared_ptr<cBioList>;
    enum class Relationship { Child, NextSibling };
    // Where in the list a click landed.
    enum class ListArea { Other = 0, Text = 1, List = 2 };
    // What the mouse shows while a node is dragged: "dragdrop" where it may be dropped, "nodrop" elsewhere.
    enum class DropPicture { None, DragDrop, NoDrop };

    cExplorer(ApplicationState& state, store::Engine& engine, Prompter& prompter);
    cExplorer(const cExplorer&) = delete;
    cExplorer& operator=(const cExplorer&) = delete;

    TreeControl& TreeV() { return tree_; }
    TaxonList& ListV() { return list_; }
    // Which of the two is on show; the other follows unseen. Raises CurrentPos when that changes.
    void SetTreeVisible(bool visible);
    bool TreeVisible() const { return treeVisible_; }
    // The taxon of the list's current row; 0 for none.
    int ListId() const { return listId_; }
    // The user moved in the list without choosing.
    void SetListId(int id);

    // Fills tree and list from the open DataSet, or empties them when none is open. What was cut stays cut as
    // long as the DataSet is the same.
    void Init();
    // Empties the tree and adds the root.
    void SetRoot(Item root);
    const Item& Root() const { return root_; }
    // A new node under `relative`, or right behind it, or last at the top level; with children it gets the
    // placeholder. nullptr when `relative` is not a node of the explorer.
    TreeNode* AddNode(std::string_view text, Item item, std::int64_t childCount, TreeNode* relative = nullptr,
                      Relationship relationship = Relationship::Child);
    void ClearNodes();
    // The user opens or closes a node; both raise CurrentPos. Its children are fetched the first time, in
    // parts when there are many.
    void ExpandNode(TreeNode* node);
    void CollapseNode(TreeNode* node);
    // Opens everything below a node, level by level, up to kMostOpened nodes. Note reports when more is
    // left; a second call continues there.
    void ExpandBelow(TreeNode* node);
    static constexpr std::size_t kMostOpened = 2000;
    // False when its only child is the placeholder.
    static bool NodeHasBeenExpanded(const TreeNode& node);

    // Does one part of what is left to be done; true while there is more. It reads at most about
    // kRowsInAPart rows, and never while no DataSet is open or a job runs.
    bool Continue();
    bool IsBusy() const;
    static constexpr std::size_t kRowsInAPart = 2000;

    // nullptr when the node is not one of the explorer's.
    Item GetNodeData(const TreeNode* node) const { return nodes_.ItemOf(node); }
    // For a record that has been saved: its node gets another item.
    void UpdateNodeData(TreeNode* node, Item item) { nodes_.Replace(node, std::move(item)); }
    // 0 when the node has no item.
    int FindIdOfNode(const TreeNode* node) const;
    // The first node of the taxon, among those loaded; with `accepted` the one under that taxon. nullptr when
    // none.
    TreeNode* FindNodeWithId(int id, std::optional<int> accepted = {}) const;
    TreeNode* FindNodeWithIdIndexed(int id, NodeTable::Place& start, std::optional<int> accepted,
                                    Item& item) const;
    // Opens the path to a taxon and gives its node; nullptr when no path leads there, or one that is longer
    // than kDeepestPath. All is done at once, however much has to be loaded.
    static constexpr std::size_t kDeepestPath = 5000;
    TreeNode* ExpandContainingSubtree(int id, std::optional<int> accepted = {});
    // Selects a node and scrolls to it.
    void HiliteNode(TreeNode* node);

    // True when `candidate` is an ancestor of `node`. False for nullptr.
    static bool IsNodeAncestor(const TreeNode* candidate, const TreeNode* node);
    // The nodes that a step through the rows on show leads to; at either end the node itself.
    TreeNode* GetNextNode(TreeNode* node) const;
    TreeNode* GetPreviousNode(TreeNode* node) const;
    // The root for a node of the top level.
    TreeNode* GetParentNode(const TreeNode* node) const;
    // The last row on show among the node's siblings and below the last of them.
    TreeNode* GetLastDisplayedNode(TreeNode* node) const;

    // The form stays on its record although another was chosen: tree and list go back to that record, or for
    // 0, a new record, to the one that was shown before it.
    void Reselect(int qb_id);
    // The form shows this taxon.
    bool IsRecord(int qb_id) const { return state_.currentTaxon.qb_id == qb_id; }

    // Move the selection in the view on show, raise ItemSelected, and then CurrentPos. Nothing where there is
    // no way to go.
    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrev();
    void MoveParent();
    // Of the view on show; false when nothing is selected.
    bool IsFirstSelected();
    bool IsLastSelected();

    // Takes a node under another, or to the top level for nullptr, before the first child there whose text in
    // lower case is above its own. The parent should have been opened: its placeholder counts as a child.
    // False when there was nothing to do: the parent is the present one, or is within the node's subtree. The
    // accepted taxon of a synonym is from then on that of its new parent.
    bool MoveAndKeepSorted(TreeNode* node, TreeNode* newParent);
    // For a new record: the item of the sibling behind which `text` belongs. The siblings are looked at from
    // the last one back to the one after the node's next; the node's own item when none of them is below the
    // text.
    Item InsertSiblingWhere(std::string_view text, const TreeNode* node) const;
    void RemoveSubtree(TreeNode* node);
    // For a deleted record: all nodes of a taxon, or those under one accepted taxon.
    void RemoveNodes(int id, std::optional<int> accepted = {});
    // For names that were changed: read those of all nodes (in parts), or that of the first node of a taxon,
    // again. The order stays.
    void RefreshNames();
    void RefreshName(int id);
    // A record has been saved as a new one: it comes into the list, and into the tree as the selected node
    // where its parent, or an accepted name of it, is there.
    void RecordAdded(int qb_id);
    // A stored record has been saved: its name, its place in the tree and its row in the list follow.
    void RecordChanged(int qb_id);
    // The record has been deleted: its nodes and its row go, and the node that was above it is the selected
    // one. Raises no event.
    void RecordRemoved(int qb_id);
    // Puts the nodes of a taxon back under the parents that the store has for it.
    void ReflectRealNodePosition(int qb_id);

    // The selected node is to be moved by the next Paste.
    void Cut();
    bool IsTaxonCut(int id) const;
    // Puts the cut node under the selected one, or back; the same as dropping it there. True when that was
    // cancelled or there is nothing to move.
    bool Paste();
    // Takes back the last move, by Paste or by the mouse; a second call does it again. A move that
    // ReflectRealNodePosition() took back is none any more.
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
    // Backspace. A taxon that no path of the tree leads to is chosen with an item that is not in the tree.
    void ListClick(ListArea area, int id);
    // False when there is no such taxon.
    bool ListDblClick(int id);
    void ListKeyPress(std::string_view key);
    // ListVTimer fired: the typed text ends.
    void ListTimer();

    std::function<void(const Item& item)> ItemSelected;
    std::function<void(bool first, bool last)> CurrentPos;
    std::function<void(TreeNode* node)> Expand;
    // A move is proposed; either parent is nullptr for the top level. Without a listener nothing moves.
    std::function<void(TreeNode* moved, TreeNode* newParent, TreeNode* oldParent, bool& Cancel)> Dropped;

    // What the window does for the explorer: call Continue() while it is idle, until that gives false; show a
    // line of text; start ListVTimer again; start or stop TreeVTimer; scroll the tree by one line, -1 for up;
    // make another taxon the current row of the list.
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
    // The node to paste, and afterwards the move to take back. Nodes are found by their items each time,
    // since they may have been rebuilt; an empty parent is the top level.
    struct CutState {
        Item item, oldParent, target;
        bool moved = false;
    };
    struct CutNodes {
        TreeNode* node = nullptr;
        TreeNode* other = nullptr;
        bool found = false;
    };
    // Children that are being fetched. `node` is nullptr for the top level.
    struct Load {
        TreeNode* node;
        Item item;
        std::unique_ptr<ChildReader> reader;
        cBioList::Collection waiting;  // read, and not in the tree yet
    };
    // The way to a taxon that was chosen in the list, opened node by node.
    struct Quest {
        int id;
        // The accepted taxa to look under, the next one at the end; the parent when it has no value.
        std::vector<std::optional<int>> ways;
        bool isChosen = false;  // the event has been raised
        std::optional<int> under = {};
        std::vector<int> path = {};  // from the taxon up to one whose node is there
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
    void TakeUnderAccepted(int qb_id);
    void MoveList(int id);
    void SearchTyped(bool onlyBefore);
    void EndSearch();
    std::vector<int> AcceptedNamesOf(int id) const;

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
    std::deque<TreeNode*> openings_;  // what ExpandBelow() has still to look at
    std::size_t opened_ = 0;
    std::string openedBelow_;
    std::vector<int> stale_;  // taxa whose names are to be read again
    std::optional<Quest> quest_;
    Choice stood_;  // the choice that the form followed last
    int listId_ = 0;
    bool isSearching_ = false, searchesBefore_ = false;
    std::string typed_;
    std::optional<int> lastBookmark_;  // the taxon of the last match
};

}  // namespace quillon::navigation
