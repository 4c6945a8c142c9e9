// The view of the tree. It adds to a plain one what dragging a node takes: it reports to the explorer what
// the mouse does, and shows the dragged name beside a picture that says whether it may be dropped there.
// Where it may be dropped, and what a drop does, the explorer knows. It also gives the explorer its idle
// time.
//
// A drag ends without a drop on Escape, on another button, and when the view is left or hidden.
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

    // Takes the place of setModel().
    void SetTreeModel(TreeModel* model);
    // Opens or closes a node as the program has it. Rows are laid out once for any number of nodes.
    void SetOpen(const QModelIndex& index, bool open);
    // Scrolls to a name that the program chose, sidewise too, so that as much of it shows as fits.
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
