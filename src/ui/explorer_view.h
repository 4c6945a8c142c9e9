// The explorer's pane of the main window: the hierarchy "HierView" and the alphabetical list "AlphaView", one
// of which is on show. It shows what cExplorer holds and reports to it what the user does; the main window
// makes one and puts it beside the editor.
//
// Of the explorer's events it takes those of the list and of the timers, and its notes. ItemSelected,
// CurrentPos, Dropped and Expand belong to the form that owns the explorer.
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

    // Shows the hierarchy, or the list standing on the explorer's taxon.
    void ShowHierarchy(bool hierarchy);
    // The view on show, which takes the focus of this widget too.
    QWidget* CurrentView() const;
    // The commands of the menu that a right click or the menu key opens; those disabled at that time are left
    // out. A null action stands for a separator.
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
    const navigation::TreeNode* clicked_ = nullptr;  // chosen by the press of a click that is under way
    int rowsAboveCurrent_ = -1;  // on show in the list before its rows changed; -1 when it stood nowhere
    QTimer listTimer_;
};

}  // namespace quillon::ui
