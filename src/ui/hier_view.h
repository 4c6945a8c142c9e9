// The view of the tree, with support for dragging a node: it reports mouse events to the explorer, and shows
// the dragged name with a picture that says whether it may be dropped there. The explorer decides where it
// may be dropped and what a drop does. The view also calls the explorer's idle work.
//
// A drag ends without a drop on Escape, on another button, and when the mouse leaves the view or the view is
// hidden.
#pragma once

#include <QCursor>
#include <QTimer>
#include <QTreeView>

#include "navigation/explorer.h"

class QLabel;

namespace quillon::ui {

class TreeModel;

class HierView : public QTreeView {
    Q_OBJECT
public:
    // The explorer must outlive the view.
    explicit HierView(navigation::cExplorer& explorer, QWidget* parent = nullptr);
    ~HierView() override;

    // Use this instead of setModel().
    void SetTreeModel(TreeModel* model);
    // Expands or collapses a node. Rows are laid out once for any number of nodes.
    void SetOpen(const QModelIndex& index, bool open);
    // Scrolls to a name that the program selected, also horizontally, to show as much of it as fits.
    void Reveal(const QModelIndex& index);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void BeginDrag();
    void DragTo(const QPoint& at);
    void ShowPicture();
    void EndDrag();
    void ShowNoDrag();
    void ScrollLine(int lines);
    QPixmap GhostOf(const QModelIndex& index) const;

    navigation::cExplorer& explorer_;
    TreeModel* model_ = nullptr;
    QTimer treeTimer_, idleTimer_;
    QPoint pressedAt_, lastAt_;
    QCursor dropCursor_, noDropCursor_;
    QLabel* ghost_ = nullptr;  // the dragged name beside the mouse
};

}  // namespace quillon::ui
