// The main window: menus, toolbars, the explorer, the record's tabs and the status bar. It shows what RecView
// and cExplorer hold, and passes user actions to them.
#pragma once

#include <QMainWindow>
#include <vector>

#include "editor/rec_view.h"
#include "navigation/explorer.h"

class QScrollArea;
class QSplitter;
class QTabBar;

namespace quillon::ui {

class ExplorerView;

class RecViewWindow : public QMainWindow {
    Q_OBJECT
public:
    // Both must outlive the window.
    RecViewWindow(editor::RecView& recView, navigation::cExplorer& explorer);
    ~RecViewWindow() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    QSize Room() const;
    int EditorWidth() const;
    void BuildStatusBar();
    void BuildBody();
    void BuildExplorer();
    QWidget* BuildEditor();
    QWidget* BuildPages();
    void ConnectForm();
    void ConnectKeys();
    void ShowView();
    void ShowPage();
    void TurnTab(int step);
    void MoveFocus();
    QWidget* FirstField() const;

    editor::RecView& recView_;
    navigation::cExplorer& explorer_;
    QSplitter* splitter_ = nullptr;
    ExplorerView* explorerView_ = nullptr;
    QWidget* editor_ = nullptr;
    QTabBar* tabs_ = nullptr;
    QScrollArea* scroller_ = nullptr;
    std::vector<QWidget*> pages_;                  // RVPanel1 to RVPanel8
    int page_ = 0;                                 // the visible one, from 1; 0 for none yet
    std::uint64_t reselection_ = 0, closing_ = 0;  // connections to RecView and its form
    bool activated_ = false;
    bool mayClose_ = false;
};

}  // namespace quillon::ui
