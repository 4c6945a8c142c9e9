// The explorer's pane of the main window: the hierarchy "HierView" and the alphabetical list "AlphaView", one
// of which is visible. It shows what cExplorer holds and passes user actions to it. The main window creates
// it beside the editor.
//
// It handles the explorer's events for the list, the timers and the notes. ItemSelected, CurrentPos, Dropped
// and Expand are handled by the form that owns the explorer.
#pragma once

#include <QList>
#include <QTimer>
#include <QWidget>

#include "navigation/explorer.h"

class QAction;
class QMenu;
class QStackedLayout;

namespace quillon::ui {

class AlphaView;
class HierView;
class ListModel;
class TreeModel;

class ExplorerView : public QWidget {
    Q_OBJECT
public:
    // The explorer must outlive the view.
    explicit ExplorerView(navigation::cExplorer& explorer, QWidget* parent = nullptr);
    ~ExplorerView() override;

    // Shows the hierarchy, or the list at the explorer's taxon.
    void ShowHierarchy(bool hierarchy);
    // The visible view, which also gets the focus of this widget.
    QWidget* CurrentView() const;
    // Sets the commands of the context menu, which leaves out those that are disabled. A null action is a
    // separator.
    void SetContextActions(const QList<QAction*>& actions);

signals:
    // A line for the status bar.
    void Noted(const QString& text);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void BuildViews();
    void ConnectTree();
    void ConnectTreeSelection();
    void ConnectList();
    void ConnectListRows();
    bool ChooseForMenu(const QContextMenuEvent& event);
    void FillMenu(QMenu& menu) const;
    void ShowListRow(int qb_id);

    navigation::cExplorer& explorer_;
    TreeModel* treeModel_ = nullptr;
    ListModel* listModel_ = nullptr;
    HierView* tree_ = nullptr;
    AlphaView* list_ = nullptr;
    QStackedLayout* views_ = nullptr;
    QList<QAction*> actions_;
    const navigation::TreeNode* clicked_ = nullptr;  // selected by the press of an unfinished click
    int rowsAboveCurrent_ = -1;  // visible in the list before its rows changed; -1 when none was current
    QTimer listTimer_;
};

}  // namespace quillon::ui
