// The explorer: the taxa of the DataSet as a tree that loads as it is opened, and as an alphabetical list,
// kept in step. It tells the form through events what the user chose, and changes no data.
//
// It works on a TreeControl and a TaxonList, which a window mirrors; it shows no messages and knows no
// widget.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/outside.h"
#include "navigation/bio_list.h"
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

    cExplorer(ApplicationState& state, store::Engine& engine, Prompter& prompter);
    cExplorer(const cExplorer&) = delete;
    cExplorer& operator=(const cExplorer&) = delete;

    TreeControl& TreeV() { return tree_; }
    TaxonList& ListV() { return list_; }
    // The taxon that the list stands on; 0 for none.
    int ListId() const { return listId_; }
    // The user moved in the list without choosing.
    void SetListId(int id) { listId_ = id; }

    // Fills tree and list from the open DataSet, or empties them when none is open.
    void Init();
    // Empties the tree, and puts in the root.
    void SetRoot(Item root);
    const Item& Root() const { return root_; }
    // A new node under `relative`, or beside it, or at the top level; with children it gets the placeholder.
    // nullptr when `relative` is not a node of the explorer.
    TreeNode* AddNode(std::string_view text, Item item, std::int64_t childCount, TreeNode* relative = nullptr,
                      Relationship relationship = Relationship::Child);
    void ClearNodes();
    // The user opens a node: its children are fetched the first time.
    void ExpandNode(TreeNode* node);
    // False when its only child is the placeholder.
    static bool NodeHasBeenExpanded(const TreeNode& node);

    // nullptr when the node is not one of the explorer's.
    Item GetNodeData(const TreeNode* node) const { return nodes_.ItemOf(node); }
    void UpdateNodeData(TreeNode* node, Item item) { nodes_.Replace(node, std::move(item)); }
    // 0 when the node has no item.
    int FindIdOfNode(const TreeNode* node) const;
    // The first node of the taxon, among those loaded; with `accepted` the one under that taxon. nullptr when
    // none.
    TreeNode* FindNodeWithId(int id, std::optional<int> accepted = {}) const;
    TreeNode* FindNodeWithIdIndexed(int id, NodeTable::Place& start, std::optional<int> accepted,
                                    Item& item) const;
    // Opens the path to a taxon and gives its node; nullptr when no path leads there.
    TreeNode* ExpandContainingSubtree(int id, std::optional<int> accepted = {});
    void HiliteNode(TreeNode* node) { tree_.Select(node); }

    // A click on a node of the tree.
    void NodeClick(TreeNode* node);
    // A click on a row of the list, a double click, and a key: a character, "\r" for Return, "\b" for
    // Backspace.
    void ListClick(ListArea area, int id);
    void ListDblClick(int id);
    void ListKeyPress(std::string_view key);
    // ListVTimer fired: the typed text ends.
    void ListTimer();

    std::function<void(const Item& item)> ItemSelected;
    std::function<void(bool first, bool last)> CurrentPos;
    std::function<void(TreeNode* node)> Expand;
    // Start ListVTimer anew.
    std::function<void()> StartListTimer;
    // The list is to stand on another taxon.
    std::function<void(int id)> ListMoved;

private:
    int ParentOf(int id, std::optional<int> accepted) const;
    void AddOrphans();
    void LoadChildren(TreeNode* node, const Item& item);
    void MoveList(int id);
    void SearchTyped(bool onlyBefore);
    std::vector<int> AcceptedNamesOf(int id) const;

    ApplicationState& state_;
    Prompter& prompter_;
    BioListSource source_;
    TreeControl tree_;
    TaxonList list_;
    NodeTable nodes_;
    Item root_;
    int listId_ = 0;
    std::string typed_;
    std::optional<int> lastBookmark_;  // the taxon of the last match
};

}  // namespace quillon::navigation
