// The explorer's tree as an item model. It mirrors a TreeControl and keeps no data of its own.
#pragma once

#include <QAbstractItemModel>
#include <functional>

#include "navigation/tree_control.h"

namespace quillon::ui {

class TreeModel : public QAbstractItemModel, public navigation::TreeObserver {
    Q_OBJECT
public:
    // The tree must outlive the model.
    explicit TreeModel(navigation::TreeControl& tree, QObject* parent = nullptr);
    ~TreeModel() override;

    navigation::TreeNode* NodeOf(const QModelIndex& index) const;
    // Invalid for nullptr.
    QModelIndex IndexOf(navigation::TreeNode* node) const;
    // True for the drop target.
    bool IsDropHighlight(const QModelIndex& index) const;
    // True while nodes are added or removed: a change of the current row then does not come from the user.
    bool IsChanging() const { return changing_; }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex&) const override { return 1; }
    QVariant data(const QModelIndex& index, int role) const override;

signals:
    void NodeExpanded(const QModelIndex& index, bool expanded);
    void NodeSelected(const QModelIndex& index);
    // The view must scroll to this node; all nodes above it are expanded.
    void NodeMadeVisible(const QModelIndex& index);
    // The drop target has changed, or there is none any more.
    void HighlightMoved();

private:
    void BeforeInsert(navigation::TreeNode* parent, std::size_t first, std::size_t last) override;
    void AfterInsert() override;
    void BeforeRemove(navigation::TreeNode* parent, std::size_t first, std::size_t last) override;
    void AfterRemove() override;
    void BeforeMove(navigation::TreeNode* node, navigation::TreeNode* parent, std::size_t row) override;
    void AfterMove() override;
    void BeforeClear() override;
    void AfterClear() override;
    void TextsChanged(navigation::TreeNode* parent, std::size_t first, std::size_t last) override;
    void ExpandedChanged(navigation::TreeNode* node) override;
    void SelectionChanged(navigation::TreeNode* node) override;
    void MadeVisible(navigation::TreeNode* node) override;
    void DropHighlightChanged(navigation::TreeNode* before, navigation::TreeNode* now) override;

    navigation::TreeControl& tree_;
    bool changing_ = false;
};

}  // namespace quillon::ui
