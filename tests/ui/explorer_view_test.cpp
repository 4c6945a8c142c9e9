// The explorer's pane with a mouse and a keyboard.
#include "ui/explorer_view.h"

#include <QtTest>
#include <QtWidgets>
#include <functional>

#include "navigation/taxa_fixture.h"
#include "ui/icons.h"

namespace quillon::ui {
namespace {

using navigation::TreeNode;

class Pane : public navigation::TaxaFixture {
protected:
    // Animalia > (Delphinidae, Orca > (alpha, beta)).
    void SetUp() override {
        TaxaFixture::SetUp();
        Add({.qb_id = 2, .parent = 1, .rank = 180, .name1 = "Orca"});
        Add({.qb_id = 3, .parent = 1, .rank = 140, .name1 = "Delphinidae"});
        Add({.qb_id = 4, .parent = 2, .name1 = "Orca", .name2 = "alpha"});
        Add({.qb_id = 5, .parent = 2, .name1 = "Orca", .name2 = "beta"});
        explorer.ItemSelected = [this](const auto& item) {
            chosen = item->qb_id();
            if (!staysOnRecord) data.state.currentTaxon.qb_id = chosen;
        };
        explorer.Dropped = [this](TreeNode*, TreeNode*, TreeNode*, bool& cancel) {
            ++drops;
            cancel = refuse;
        };
    }
    void Show() {
        explorer.Init();
        view.resize(300, 240);
        view.show();
        view.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
        if (explorer.TreeV().TopCount() == 0) return;
        explorer.ExpandNode(explorer.TreeV().Top(0));
        if (TreeNode* orca = explorer.FindNodeWithId(2)) explorer.ExpandNode(orca);
    }
    // The rows of the tree that are on show, each with its depth.
    QStringList Rows() const {
        QStringList rows;
        for (QModelIndex at = tree->model()->index(0, 0); at.isValid(); at = tree->indexBelow(at)) {
            int depth = 0;
            for (QModelIndex up = at.parent(); up.isValid(); up = up.parent()) ++depth;
            rows << QString(depth, '>') + at.data().toString();
        }
        return rows;
    }
    QPoint At(const QString& text) const {
        for (QModelIndex at = tree->model()->index(0, 0); at.isValid(); at = tree->indexBelow(at)) {
            if (at.data().toString() == text) return tree->visualRect(at).center();
        }
        ADD_FAILURE() << "no row " << text.toStdString();
        return {};
    }
    void Mouse(QEvent::Type type, const QPoint& at, Qt::MouseButton button, Qt::MouseButtons buttons) {
        QMouseEvent event(type, at, tree->viewport()->mapToGlobal(at), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(tree->viewport(), &event);
    }
    void Press(const QPoint& at) { Mouse(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton); }
    void Drag(const QPoint& at) { Mouse(QEvent::MouseMove, at, Qt::NoButton, Qt::LeftButton); }
    void Release(const QPoint& at) { Mouse(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton); }
    QString Picture() const {
        const QImage shown = tree->viewport()->cursor().pixmap().toImage();
        for (const char* name : {"dragdrop", "nodrop"}) {
            if (shown == Icon(name).pixmap(24, 24).toImage()) return name;
        }
        return "";
    }
    bool GhostShows() const { return view.findChild<QLabel*>("DragGhost")->isVisible(); }
    // Opens the menu by `open`, and takes the entry `choice` of it; gives its entries.
    QStringList MenuOf(const std::function<void()>& open, const QString& choice = {}) {
        QStringList entries;
        QTimer::singleShot(0, &view, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (menu == nullptr) return;
            for (QAction* action : menu->actions()) {
                entries << (action->isSeparator() ? QString("-") : action->text());
                if (action->text() == choice) action->trigger();
            }
            menu->close();
        });
        open();
        QCoreApplication::processEvents();
        return entries;
    }
    void RightClick(QAbstractItemView* on, const QPoint& at) {
        QTest::mousePress(on->viewport(), Qt::RightButton, {}, at);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, on->viewport()->mapToGlobal(at));
        QApplication::sendEvent(on->viewport(), &event);
        QTest::mouseRelease(on->viewport(), Qt::RightButton, {}, at);
    }
    void ShowList() {
        view.ShowHierarchy(false);
        EXPECT_TRUE(QTest::qWaitFor([&] { return explorer.ListV().IsComplete(); }));
    }
    QString Line() const { return list->currentIndex().data().toString(); }

    navigation::cExplorer explorer{data.state, data.engine, data.prompter};
    ExplorerView view{explorer};
    QTreeView* tree = view.findChild<QTreeView*>("HierView");
    QListView* list = view.findChild<QListView*>("AlphaView");
    int chosen = 0, drops = 0;
    bool refuse = false;
    bool staysOnRecord = false;  // the form refuses what is chosen

    const QStringList before = {"Animalia", ">Delphinidae", ">Orca", ">>Orca  alpha", ">>Orca  beta"};
    const QStringList after = {"Animalia", ">Delphinidae", ">>Orca", ">>>Orca  alpha", ">>>Orca  beta"};
};

TEST_F(Pane, ShowsOneOfTheTwoViewsWhichTakesTheFocus) {
    Show();
    EXPECT_EQ(view.CurrentView(), tree);
    EXPECT_TRUE(explorer.TreeVisible());
    view.setFocus();
    EXPECT_TRUE(tree->hasFocus());
    view.ShowHierarchy(false);
    EXPECT_EQ(view.CurrentView(), list);
    EXPECT_FALSE(explorer.TreeVisible());
    EXPECT_TRUE(list->isVisible());
    EXPECT_FALSE(tree->isVisible());
    EXPECT_TRUE(list->hasFocus()) << "the focus stays in the pane";
    view.ShowHierarchy(true);
    EXPECT_TRUE(tree->hasFocus());
}

TEST_F(Pane, ASubtreeIsDraggedUndoneAndDoneAgain) {
    Show();
    ASSERT_EQ(Rows(), before);
    Press(At("Orca"));
    EXPECT_EQ(chosen, 2);
    EXPECT_FALSE(GhostShows());
    Drag(At("Orca  alpha"));
    EXPECT_TRUE(GhostShows());
    EXPECT_EQ(Picture(), "nodrop") << "a child of its own";
    EXPECT_EQ(chosen, 2) << "the way of the mouse chooses nothing";
    Drag(At("Delphinidae"));
    EXPECT_EQ(Picture(), "dragdrop");
    EXPECT_EQ(explorer.TreeV().DropHighlight()->Text(), "Delphinidae");
    Release(At("Delphinidae"));
    EXPECT_EQ(drops, 1);
    EXPECT_EQ(Rows(), after);
    EXPECT_EQ(tree->currentIndex().data(), "Orca");
    EXPECT_FALSE(GhostShows());
    EXPECT_EQ(Picture(), "");
    explorer.Undo();
    EXPECT_EQ(Rows(), before);
    EXPECT_EQ(tree->currentIndex().data(), "Orca");
    explorer.Undo();
    EXPECT_EQ(Rows(), after);
    explorer.NodeClick(explorer.TreeV().Top(0));
    EXPECT_EQ(chosen, 1);
    Press(At("Orca  beta"));
    Release(At("Orca  beta"));
    EXPECT_EQ(chosen, 5) << "the mouse goes on as ever";
}

TEST_F(Pane, EscapeEndsADrag) {
    Show();
    tree->setFocus();
    Press(At("Orca"));
    Drag(At("Delphinidae"));
    QTest::keyClick(tree, Qt::Key_A);
    EXPECT_TRUE(explorer.IsDragging()) << "only Escape ends it";
    QTest::keyClick(tree, Qt::Key_Escape);
    EXPECT_FALSE(explorer.IsDragging());
    EXPECT_FALSE(GhostShows());
    EXPECT_EQ(Picture(), "");
    Drag(At("Animalia"));
    Release(At("Delphinidae"));
    EXPECT_EQ(drops, 0);
    EXPECT_EQ(Rows(), before);
}

TEST_F(Pane, AnotherButtonOrLeavingTheViewEndsADrag) {
    Show();
    Press(At("Orca"));
    Drag(At("Delphinidae"));
    Mouse(QEvent::MouseButtonPress, At("Delphinidae"), Qt::RightButton, Qt::LeftButton | Qt::RightButton);
    EXPECT_FALSE(explorer.IsDragging());
    Release(At("Delphinidae"));
    Press(At("Orca"));
    Drag(At("Delphinidae"));
    view.ShowHierarchy(false);
    EXPECT_FALSE(explorer.IsDragging());
    view.ShowHierarchy(true);
    Press(At("Orca"));
    Drag(At("Delphinidae"));
    Mouse(QEvent::MouseMove, At("Delphinidae"), Qt::NoButton, Qt::NoButton);
    EXPECT_FALSE(explorer.IsDragging()) << "the button was let go elsewhere";
    EXPECT_EQ(drops, 0);
    EXPECT_EQ(Rows(), before);
}

TEST_F(Pane, ARefusedDropLeavesTheTree) {
    Show();
    refuse = true;
    Press(At("Orca"));
    Drag(At("Delphinidae"));
    Release(At("Delphinidae"));
    EXPECT_EQ(drops, 1);
    EXPECT_EQ(Rows(), before);
}

TEST_F(Pane, NothingIsDroppedOutsideTheTree) {
    Show();
    Press(At("Orca"));
    Drag(At("Delphinidae"));
    Drag(QPoint(20, -10));
    EXPECT_EQ(Picture(), "nodrop");
    Release(QPoint(20, -10));
    EXPECT_EQ(drops, 0);
    EXPECT_FALSE(explorer.IsDragging());
}

TEST_F(Pane, ASmallMovementDragsNothing) {
    Show();
    const QPoint at = At("Orca");
    Press(at);
    Drag(at + QPoint(1, 1));
    EXPECT_FALSE(explorer.IsDragging());
    Release(at + QPoint(1, 1));
    EXPECT_EQ(chosen, 2);
}

TEST_F(Pane, AtItsEdgeTheTreeScrollsWhileDragging) {
    data.engine.BeginTrans();
    for (int id = 100; id < 160; ++id)
        Add({.qb_id = id, .parent = 2, .name1 = "Orca", .name2 = fmt::format("s{}", id)});
    data.engine.CommitTrans();
    Show();
    Press(At("Orca  alpha"));
    Drag(QPoint(40, tree->viewport()->height() - 3));
    EXPECT_TRUE(QTest::qWaitFor([&] { return tree->verticalScrollBar()->value() >= 3; }));
    const QModelIndex under = tree->indexAt(QPoint(40, tree->viewport()->height() - 3));
    EXPECT_EQ(Picture(), "nodrop") << under.data().toString().toStdString();
    Drag(QPoint(40, 3));
    EXPECT_TRUE(QTest::qWaitFor([&] { return tree->verticalScrollBar()->value() == 0; }));
    EXPECT_EQ(explorer.TreeV().DropHighlight(), explorer.TreeV().Top(0));
    QTest::keyClick(tree, Qt::Key_Escape);
    EXPECT_EQ(Picture(), "");
}

TEST_F(Pane, TheTreeShowsNamesThatWereReadAgain) {
    Show();
    data.db().Execute("UPDATE qb_taxonomic_units SET unit_name2 = 'gamma' WHERE qb_id = 5");
    explorer.RefreshNames();
    EXPECT_EQ(Rows().back(), ">>Orca  gamma");
    QSignalSpy changes(tree->model(), &QAbstractItemModel::dataChanged);
    explorer.RefreshNames();
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(Pane, KeysMoveThroughTheTree) {
    Show();
    tree->setFocus();
    explorer.HiliteNode(explorer.TreeV().Top(0));
    QTest::keyClick(tree, Qt::Key_Down);
    QTest::keyClick(tree, Qt::Key_Down);
    EXPECT_EQ(chosen, 2);
    QTest::keyClick(tree, Qt::Key_Left);
    EXPECT_EQ(Rows(), before.mid(0, 3));
    QTest::keyClick(tree, Qt::Key_Right);
    QTest::keyClick(tree, Qt::Key_Right);
    EXPECT_EQ(chosen, 4);
    QTest::keyClick(tree, Qt::Key_End);
    EXPECT_EQ(chosen, 5);
    QTest::keyClick(tree, Qt::Key_Home);
    EXPECT_EQ(chosen, 1);
}

TEST_F(Pane, TypedKeysFindALineAndReturnChoosesIt) {
    Show();
    ShowList();
    list->setFocus();
    chosen = 0;
    QTest::keyClicks(list, "orca b");
    EXPECT_EQ(Line(), "Orca beta (valid)");
    EXPECT_EQ(chosen, 0);
    QTest::keyClick(list, Qt::Key_Backspace);
    EXPECT_EQ(Line(), "Orca (valid)");
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(chosen, 2);
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(explorer.ListId(), 4) << "arrows move without choosing";
    EXPECT_EQ(chosen, 2);
}

TEST_F(Pane, AKeyIsAnsweredBeforeTheListReachesTheName) {
    data.engine.BeginTrans();
    for (int id = 100; id < 1600; ++id) Add({.qb_id = id, .name1 = fmt::format("Genus{}", id)});
    data.engine.CommitTrans();
    Show();
    explorer.ListV().Open(data.state.gDatabase, "Get Animal Data");
    view.ShowHierarchy(false);
    list->setFocus();
    ASSERT_FALSE(explorer.ListV().IsComplete());
    QTest::keyClicks(list, "genus140");
    EXPECT_EQ(Line(), "Genus140 (valid)");
    const int height = list->visualRect(list->currentIndex()).top();
    EXPECT_TRUE(QTest::qWaitFor([&] { return explorer.ListV().IsComplete(); }));
    EXPECT_EQ(list->model()->rowCount(), 1505);
    EXPECT_EQ(Line(), "Genus140 (valid)");
    EXPECT_EQ(list->visualRect(list->currentIndex()).top(), height) << "the rows on show do not jump";
    QTest::keyClicks(list, "0");
    EXPECT_EQ(Line(), "Genus1400 (valid)");
}

TEST_F(Pane, ANewNameAppearsInTheList) {
    Show();
    ShowList();
    Add({.qb_id = 9, .name1 = "Mola"});
    explorer.ListV().Update(9);
    QStringList lines;
    for (int row = 0; row < list->model()->rowCount(); ++row)
        lines << list->model()->index(row, 0).data().toString();
    EXPECT_EQ(lines, (QStringList{"Animalia (valid)", "Delphinidae (valid)", "Mola (valid)", "Orca (valid)",
                                  "Orca alpha (valid)", "Orca beta (valid)"}));
    data.db().Execute("DELETE * FROM qb_taxonomic_units WHERE qb_id = 9");
    explorer.ListV().Update(9);
    EXPECT_EQ(list->model()->rowCount(), 5);
}

TEST_F(Pane, TheMenuHasTheCommandsThatApply) {
    Show();
    QAction cut("Cut Name"), paste("Paste Name"), remove("Delete Name");
    paste.setEnabled(false);
    view.SetContextActions({&cut, &paste, nullptr, &remove});
    int removed = 0;
    QObject::connect(&remove, &QAction::triggered, &view, [&] { removed = chosen; });
    const QStringList entries = {"Cut Name", "-", "Delete Name"};
    EXPECT_EQ(MenuOf([&] { RightClick(tree, At("Orca  beta")); }, "Delete Name"), entries);
    EXPECT_EQ(removed, 5) << "of the node under the mouse";
    EXPECT_EQ(MenuOf([&] {
                  QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
                  QApplication::sendEvent(tree->viewport(), &event);
              }),
              entries);
    ShowList();
    EXPECT_EQ(MenuOf([&] { RightClick(list, list->visualRect(list->model()->index(2, 0)).center()); },
                     "Delete Name"),
              entries);
    EXPECT_EQ(removed, 2) << "of the row under the mouse";
    QTest::keyClick(list, Qt::Key_Down);
    const int marked = list->currentIndex().row();
    EXPECT_EQ(marked, 3);
    EXPECT_EQ(MenuOf(
                  [&] {
                      QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
                      QApplication::sendEvent(list->viewport(), &event);
                  },
                  "Delete Name"),
              entries);
    EXPECT_EQ(removed, 4) << "of the row that the keys have marked";
}

TEST_F(Pane, ARowThatNoPathLeadsToHasAMenuToo) {
    Add({.qb_id = 9, .parent = 77, .name1 = "Zalophus"});
    Show();
    ShowList();
    QAction cut("Cut Name");
    view.SetContextActions({&cut});
    EXPECT_EQ(MenuOf([&] { RightClick(list, list->visualRect(list->model()->index(5, 0)).center()); }),
              QStringList{"Cut Name"});
    EXPECT_EQ(chosen, 9);
}

TEST_F(Pane, ARowThatDidNotBecomeTheRecordHasNoMenu) {
    Show();
    ShowList();
    QAction cut("Cut Name");
    view.SetContextActions({&cut});
    staysOnRecord = true;
    EXPECT_EQ(MenuOf([&] { RightClick(list, list->visualRect(list->model()->index(2, 0)).center()); }),
              QStringList{});
    EXPECT_EQ(chosen, 2) << "it was asked for";
}

TEST_F(Pane, ALineThatIsCutHasAToolTip) {
    Add({.qb_id = 9, .name1 = "Zalophus", .name2 = std::string(35, 'l'), .name3 = std::string(35, 'm')});
    Show();
    ShowList();
    const auto tipAt = [&](int row) {
        const QPoint at = list->visualRect(list->model()->index(row, 0)).topLeft() + QPoint(4, 4);
        QHelpEvent event(QEvent::ToolTip, at, list->viewport()->mapToGlobal(at));
        QApplication::sendEvent(list->viewport(), &event);
        return QToolTip::text();
    };
    EXPECT_EQ(tipAt(2), "");
    EXPECT_EQ(tipAt(5), "Zalophus " + QString(35, 'l') + ' ' + QString(35, 'm') + " (valid)");
}

TEST_F(Pane, AsteriskExpandsTheSubtree) {
    Show();
    explorer.CollapseNode(explorer.FindNodeWithId(2));
    explorer.HiliteNode(explorer.TreeV().Top(0));
    EXPECT_EQ(Rows(), before.mid(0, 3));
    QTest::keyClick(tree, Qt::Key_Asterisk);
    EXPECT_EQ(Rows(), before);
}

TEST_F(Pane, AsteriskReportsThatThereIsMore) {
    data.engine.BeginTrans();
    for (int id = 100; id < 2200; ++id)
        Add({.qb_id = id, .parent = id == 100 ? 1 : id - 1, .rank = 220, .name1 = "Link"});
    data.engine.CommitTrans();
    Show();
    explorer.HiliteNode(explorer.TreeV().Top(0));
    QSignalSpy notes(&view, &ExplorerView::Noted);
    QTest::keyClick(tree, Qt::Key_Asterisk);
    EXPECT_TRUE(QTest::qWaitFor([&] { return notes.count() == 1; }));
    EXPECT_EQ(notes.at(0).at(0).toString(), "2000 branches below Animalia were opened; there are more.");
}

TEST_F(Pane, ALargeNodeFillsWhileTheWindowIsIdle) {
    data.engine.BeginTrans();
    for (int id = 100; id < 2600; ++id)
        Add({.qb_id = id, .parent = 3, .name1 = "Delphinus", .name2 = fmt::format("s{}", id)});
    data.engine.CommitTrans();
    Show();
    const QModelIndex node = tree->model()->index(0, 0, tree->model()->index(0, 0));
    EXPECT_EQ(tree->model()->rowCount(node), 0);
    EXPECT_TRUE(tree->model()->hasChildren(node));
    tree->expand(node);
    EXPECT_TRUE(tree->isExpanded(node));
    EXPECT_TRUE(QTest::qWaitFor([&] { return tree->model()->rowCount(node) == 2500; }));
    EXPECT_EQ(Rows().size(), 5 + 2500);
}

TEST_F(Pane, NoMenuWithoutACommand) {
    Show();
    QAction cut("Cut Name");
    cut.setEnabled(false);
    view.SetContextActions({&cut});
    EXPECT_EQ(MenuOf([&] { RightClick(tree, At("Orca")); }), QStringList{});
}

TEST_F(Pane, TheExplorerMayGoOnWithoutItsView) {
    navigation::cExplorer other{data.state, data.engine, data.prompter};
    auto pane = std::make_unique<ExplorerView>(other);
    other.Init();
    pane.reset();
    other.ExpandNode(other.TreeV().Top(0));
    other.ListKeyPress("o");
    EXPECT_EQ(other.ListId(), 2);
}

}  // namespace
}  // namespace quillon::ui
