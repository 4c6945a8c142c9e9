// Turns changes of the tree into changes of an item model.
#include "ui/tree_model.h"

#include "ui/text_convert.h"

namespace quillon::ui {

using navigation::TreeNode;

TreeModel::TreeModel(navigation::TreeControl& tree, QObject* parent)
    : QAbstractItemModel(parent), tree_(tree) {
    tree_.SetObserver(this);
}

TreeModel::~TreeModel() {
    tree_.SetObserver(nullptr);
}

TreeNode* TreeModel::NodeOf(const QModelIndex& index) const {
    return index.isValid() ? static_cast<TreeNode*>(index.internalPointer()) : nullptr;
}

QModelIndex TreeModel::IndexOf(TreeNode* node) const {
    return node == nullptr ? QModelIndex() : createIndex(static_cast<int>(node->Row()), 0, node);
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (column != 0 || row < 0 || row >= rowCount(parent)) return {};
    const auto at = static_cast<std::size_t>(row);
    TreeNode* above = NodeOf(parent);
    return createIndex(row, 0, above == nullptr ? tree_.Top(at) : above->Child(at));
}

QModelIndex TreeModel::parent(const QModelIndex& child) const {
    const TreeNode* node = NodeOf(child);
    return node == nullptr ? QModelIndex() : IndexOf(node->Parent());
}

int TreeModel::rowCount(const QModelIndex& parent) const {
    const TreeNode* node = NodeOf(parent);
    return static_cast<int>(node == nullptr ? tree_.TopCount() : node->RowCount());
}

// A node whose children have not been read can be expanded too.
bool TreeModel::hasChildren(const QModelIndex& parent) const {
    const TreeNode* node = NodeOf(parent);
    return (node == nullptr ? tree_.TopCount() : node->ChildCount()) > 0;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
    return ToQt(NodeOf(index)->Text());
}

void TreeModel::BeforeInsert(TreeNode* parent, std::size_t first, std::size_t last) {
    changing_ = true;
    beginInsertRows(IndexOf(parent), static_cast<int>(first), static_cast<int>(last));
}

void TreeModel::AfterInsert() {
    endInsertRows();
    changing_ = false;
}

void TreeModel::BeforeRemove(TreeNode* parent, std::size_t first, std::size_t last) {
    changing_ = true;
    beginRemoveRows(IndexOf(parent), static_cast<int>(first), static_cast<int>(last));
}

void TreeModel::AfterRemove() {
    endRemoveRows();
    changing_ = false;
}

void TreeModel::BeforeMove(TreeNode* node, TreeNode* parent, std::size_t row) {
    changing_ = true;
    const int from = static_cast<int>(node->Row());
    beginMoveRows(IndexOf(node->Parent()), from, from, IndexOf(parent), static_cast<int>(row));
}

void TreeModel::AfterMove() {
    endMoveRows();
    changing_ = false;
}

void TreeModel::BeforeClear() {
    changing_ = true;
    beginResetModel();
}

void TreeModel::AfterClear() {
    endResetModel();
    changing_ = false;
}

void TreeModel::TextsChanged(TreeNode* parent, std::size_t first, std::size_t last) {
    const QModelIndex above = IndexOf(parent);
    emit dataChanged(index(static_cast<int>(first), 0, above), index(static_cast<int>(last), 0, above));
}

void TreeModel::ExpandedChanged(TreeNode* node) {
    emit NodeExpanded(IndexOf(node), node->Expanded());
}

void TreeModel::SelectionChanged(TreeNode* node) {
    emit NodeSelected(IndexOf(node));
}

void TreeModel::MadeVisible(TreeNode* node) {
    emit NodeMadeVisible(IndexOf(node));
}

void TreeModel::DropHighlightChanged(TreeNode*, TreeNode*) {
    emit HighlightMoved();
}

bool TreeModel::IsDropHighlight(const QModelIndex& index) const {
    return tree_.DropHighlight() != nullptr && NodeOf(index) == tree_.DropHighlight();
}

}  // namespace quillon::ui
