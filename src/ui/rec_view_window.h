// The main window: menus, toolbars, the explorer's two views, the record's tabs and the status bar. It shows
// what RecView and cExplorer hold, and hands them what the user does.
#pragma once

#include <QMainWindow>
#include <QTimer>

#include "editor/rec_view.h"
#include "navigation/explorer.h"

class QListView;
class QSplitter;
class QStackedWidget;
class QTabBar;
class QTreeView;

namespace quillon::ui {

class AlphaView;
class ListModel;
class TreeModel;

class RecViewWindow : public QMainWindow {
    Q_OBJECT
public:
    // Both must outlive the window.
    RecViewWindow(editor::RecView& recView, navigation::cExplorer& explorer);
    ~RecViewWindow() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildMenus();
    void BuildToolBars();
    void BuildStatusBar();
    void BuildBody();
    QWidget* BuildExplorer();
    QWidget* BuildEditor();
    QWidget* BuildTaxonTab();
    void ConnectTree();
    void ConnectList();
    void ConnectForm();
    void ShowView();
    void ShowListRow(int qb_id);
    void MoveFocus();
    void Reselect(int qb_id);

    editor::RecView& recView_;
    navigation::cExplorer& explorer_;
    TreeModel* treeModel_ = nullptr;
    ListModel* listModel_ = nullptr;
    QTreeView* tree_ = nullptr;
    AlphaView* list_ = nullptr;
    QStackedWidget* views_ = nullptr;
    QTabBar* tabs_ = nullptr;
    QStackedWidget* pages_ = nullptr;
    const navigation::TreeNode* clicked_ = nullptr;  // chosen by the press of a click that is under way
    QTimer listTimer_;
    bool mayClose_ = false;
};

}  // namespace quillon::ui
