// The help window, driven by keys and clicks.
#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include "ui/help.h"

namespace quillon::ui {
namespace {

TEST(HelpWords, AreSplitAtBlanksWithoutRepeats) {
    EXPECT_EQ(HelpWords("  Drag  a NAME name "), (QStringList{"drag", "a", "name"}));
    EXPECT_EQ(HelpWords("  "), QStringList());
}

TEST(HelpHits, StandInTheOrderOfTheText) {
    EXPECT_EQ(HelpHits("A tree, the Tree", {"tree"}), (QList<HelpHit>{{2, 4}, {12, 4}}));
    EXPECT_EQ(HelpHits("A tree, the Tree", {"tree", "a"}), (QList<HelpHit>{{0, 1}, {2, 4}, {12, 4}}));
}

TEST(HelpHits, NeedEveryWord) {
    EXPECT_EQ(HelpHits("A tree", {"tree", "list"}), QList<HelpHit>());
    EXPECT_EQ(HelpHits("A tree", {}), QList<HelpHit>());
}

TEST(HelpHits, DoNotOverlap) {
    EXPECT_EQ(HelpHits("subtree", {"tree", "subt", "tr"}), (QList<HelpHit>{{0, 4}}));
    EXPECT_EQ(HelpHits("trees", {"tree", "trees"}), (QList<HelpHit>{{0, 5}}));
}

TEST(HelpPages, TheContentsAreTheListOfTheFirstPage) {
    const QList<HelpEntry> contents = HelpPages().Contents();
    ASSERT_GT(contents.size(), 14);
    EXPECT_EQ(contents[0], (HelpEntry{0, "The manual", "index.md"}));
    EXPECT_EQ(contents[1], (HelpEntry{0, "Beginning", ""}));
    EXPECT_EQ(contents[2], (HelpEntry{1, "What a DataSet is", "datasets.md"}));
    EXPECT_EQ(contents[11], (HelpEntry{0, "The record", ""}));
    EXPECT_EQ(contents[12], (HelpEntry{1, "The record", "record.md"}));
    EXPECT_EQ(contents[13], (HelpEntry{2, "Taxon", "tab-taxon.md"}));
}

TEST(HelpPages, KnowTheirAddresses) {
    EXPECT_EQ(HelpPageAt(HelpUrl("keys.md")), "keys.md");
    EXPECT_EQ(HelpPageAt(QUrl("file:///manual/keys.md")), "");
    EXPECT_EQ(HelpPages().TitleOf("keys.md"), "Keys");
    EXPECT_EQ(HelpPages().TitleOf("nothing.md"), "");
    EXPECT_EQ(HelpPages().TitleOf(""), "");
}

class HelpWindowTest : public testing::Test {
protected:
    HelpWindowTest() {
        main.show();
        help.ShowContents();
        window = help.Window();
        page = window->findChild<QTextBrowser*>("txtPage");
        search = window->findChild<QLineEdit*>("txtSearch");
        contents = window->findChild<QTreeWidget*>("treContents");
        Activate();
    }
    void Activate() {
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    }
    QString Shown() { return HelpPageAt(page->source()); }
    QString Found() { return window->findChild<QLabel*>("lblFound")->text(); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window->focusWidget(), key, modifiers);
    }
    // The rows of the contents that are shown: title, and hits when there are any.
    QStringList Rows() {
        QStringList rows;
        for (QTreeWidgetItemIterator item(contents, QTreeWidgetItemIterator::NotHidden); *item != nullptr;
             ++item)
            rows << (*item)->text(0) + ((*item)->text(1).isEmpty() ? "" : " " + (*item)->text(1));
        return rows;
    }
    // The marked texts; the one that the user stands on in brackets.
    QStringList Marks() {
        QStringList marks;
        for (const auto& mark : page->extraSelections()) {
            const bool isCurrent = mark.format.background().color() == QColor(255, 157, 60);
            marks << (isCurrent ? "[" + mark.cursor.selectedText() + "]" : mark.cursor.selectedText());
        }
        return marks;
    }
    // The middle of the first link on the page with that text.
    // Scrolls to the link.
    QPoint LinkAt(const QString& text) {
        for (QTextBlock block = page->document()->begin(); block.isValid(); block = block.next()) {
            for (auto part = block.begin(); !part.atEnd(); ++part) {
                const QTextFragment fragment = part.fragment();
                if (!fragment.charFormat().isAnchor() || fragment.text() != text) continue;
                QTextCursor cursor(page->document());
                cursor.setPosition(fragment.position() + fragment.length() / 2);
                QScrollBar& bar = *page->verticalScrollBar();
                bar.setValue(bar.value() + page->cursorRect(cursor).y() - page->viewport()->height() / 2);
                return page->cursorRect(cursor).center();
            }
        }
        ADD_FAILURE() << "no link " << text.toStdString();
        return {};
    }

    QString tab = "comments";
    QWidget main;
    Help help{main, [this] { return tab; }};
    HelpWindow* window = nullptr;
    QTextBrowser* page = nullptr;
    QLineEdit* search = nullptr;
    QTreeWidget* contents = nullptr;
};

TEST_F(HelpWindowTest, OpensAtThePageOfTheTabInFront) {
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->windowTitle(), "Taxonomic Quillon - Help");
    EXPECT_EQ(Shown(), "tab-comments.md");
    EXPECT_TRUE(page->toPlainText().startsWith("The tab Comments\n"));
    EXPECT_EQ(contents->currentItem()->text(0), "Comments");
    EXPECT_TRUE(contents->hasFocus());
    tab = "experts";
    help.ShowSearch();
    EXPECT_EQ(Shown(), "tab-experts.md");
    EXPECT_TRUE(search->hasFocus());
}

TEST_F(HelpWindowTest, ThereIsOneAtATime) {
    help.ShowContents();
    EXPECT_EQ(help.Window(), window);
    window->close();
    help.ShowSearch();
    EXPECT_EQ(help.Window(), window);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(main.findChildren<HelpWindow*>().size(), 1);
}

TEST_F(HelpWindowTest, ATabWithoutAPageOpensTheFirst) {
    tab = "elsewhere";
    help.ShowContents();
    EXPECT_EQ(Shown(), "index.md");
}

TEST_F(HelpWindowTest, TheContentsGoFromPageToPage) {
    Press(Qt::Key_Down);
    EXPECT_EQ(Shown(), "tab-publications.md");
    Press(Qt::Key_Up);
    Press(Qt::Key_Up);
    EXPECT_EQ(Shown(), "tab-distribution.md");
    auto* item = contents->findItems("Keys", Qt::MatchExactly | Qt::MatchRecursive).front();
    contents->scrollToItem(item);
    QTest::mouseClick(contents->viewport(), Qt::LeftButton, {}, contents->visualItemRect(item).center());
    EXPECT_EQ(Shown(), "keys.md");
}

TEST_F(HelpWindowTest, AHeadingLeavesThePage) {
    auto* item = contents->findItems("Reference", Qt::MatchExactly).front();
    contents->scrollToItem(item);
    QTest::mouseClick(contents->viewport(), Qt::LeftButton, {}, contents->visualItemRect(item).center());
    EXPECT_EQ(Shown(), "tab-comments.md");
}

TEST_F(HelpWindowTest, LinksAreFollowedByMouseAndByKeyboard) {
    QTest::mouseClick(page->viewport(), Qt::LeftButton, {}, LinkAt("The record"));
    EXPECT_EQ(Shown(), "record.md");
    EXPECT_EQ(contents->currentItem()->text(0), "The record");
    Press(Qt::Key_F6);
    EXPECT_TRUE(contents->hasFocus());
    Press(Qt::Key_F6);
    ASSERT_TRUE(page->hasFocus());
    QTest::keyClick(page, Qt::Key_Tab);
    QTest::keyClick(page, Qt::Key_Return);
    EXPECT_EQ(Shown(), "tab-taxon.md") << "the first link of the page";
}

TEST_F(HelpWindowTest, NavigatesBackForwardAndHome) {
    auto* back = window->findChild<QAction*>("back");
    auto* forward = window->findChild<QAction*>("forward");
    window->ShowPage("keys.md");
    window->ShowPage("help.md");
    EXPECT_FALSE(forward->isEnabled());
    Press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Shown(), "keys.md");
    EXPECT_EQ(contents->currentItem()->text(0), "Keys");
    Press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Shown(), "help.md");
    back->trigger();
    EXPECT_EQ(Shown(), "keys.md");
    Press(Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(Shown(), "index.md");
}

TEST_F(HelpWindowTest, TheSearchKeepsPagesWithAllWords) {
    Press(Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(search->hasFocus());
    QTest::keyClicks(search, "assocociated");
    EXPECT_EQ(Rows().join(", "), "The record, The record, Experts 1");
    EXPECT_EQ(Found(), "1 hit on 1 page");
    QTest::keyClicks(search, " nowhere");
    EXPECT_EQ(Rows(), QStringList());
    EXPECT_EQ(Found(), "Nothing found");
}

TEST_F(HelpWindowTest, TheNextHitMayBeOnAnotherPage) {
    help.ShowSearch();
    QTest::keyClicks(search, "Caribbean");
    EXPECT_EQ(Rows().join(", "), "The record, The record, Distribution 2");
    EXPECT_EQ(Marks(), QStringList()) << "the page in front does not hold it";
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), "tab-distribution.md");
    EXPECT_EQ(Marks().join(" "), "[Caribbean] Caribbean");
    Press(Qt::Key_F3);
    EXPECT_EQ(Marks().join(" "), "Caribbean [Caribbean]");
    Press(Qt::Key_F3);
    EXPECT_EQ(Marks().join(" "), "[Caribbean] Caribbean") << "from the last to the first";
    Press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Marks().join(" "), "Caribbean [Caribbean]");
}

TEST_F(HelpWindowTest, EscapeClearsTheSearchThenCloses) {
    const QStringList all = Rows();
    help.ShowSearch();
    QTest::keyClicks(search, "comment");
    EXPECT_LT(Rows().size(), all.size());
    EXPECT_FALSE(Marks().isEmpty());
    Press(Qt::Key_Escape);
    EXPECT_EQ(search->text(), "");
    EXPECT_EQ(Rows(), all);
    EXPECT_EQ(Marks(), QStringList());
    EXPECT_TRUE(window->isVisible());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(HelpWindowTest, ItsOwnKeyOpensTheHelpOnHelp) {
    Press(Qt::Key_F1);
    EXPECT_EQ(Shown(), "help.md");
}

TEST_F(HelpWindowTest, APageKeepsItsTextInEveryPalette) {
    const QString text = page->toPlainText();
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::AlternateBase, QColor(40, 40, 40));
    window->setPalette(dark);
    EXPECT_EQ(page->toPlainText(), text);
    auto* table = qobject_cast<QTextTable*>(page->document()->rootFrame()->childFrames().front());
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->cellAt(0, 0).format().background().color(), QColor(40, 40, 40));
}

// What a modal dialog lets through is decided where the system's events come in, so the click is the
// window's.
TEST_F(HelpWindowTest, HelpStaysUsableBesideAModalDialog) {
    window->close();
    QTimer::singleShot(0, [this] {
        QWidget* modal = QApplication::activeModalWidget();
        ASSERT_NE(modal, nullptr);
        QTest::keyClick(modal, Qt::Key_F1);
        ASSERT_TRUE(window->isVisible());
        EXPECT_EQ(Shown(), "importing.md");
        auto* item = contents->currentItem()->child(0);
        const QPoint middle = contents->visualItemRect(item).center();
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                          contents->viewport()->mapTo(window, middle));
        EXPECT_EQ(Shown(), "import-log.md");
        qobject_cast<QDialog*>(modal)->reject();
    });
    {
        QDialog dialog(&main);
        dialog.setObjectName("FrmImport");
        dialog.exec();
    }
    EXPECT_EQ(window->windowHandle()->transientParent(), main.windowHandle())
        << "it stays when the dialog goes";
    help.ShowContents();
    EXPECT_EQ(Shown(), "tab-comments.md");
}

TEST_F(HelpWindowTest, ABoxWithoutItsOwnPageOpensThePageOfDialogs) {
    QTimer::singleShot(0, [this] {
        QWidget* modal = QApplication::activeModalWidget();
        ASSERT_NE(modal, nullptr);
        QTest::keyClick(modal, Qt::Key_F1);
        EXPECT_EQ(Shown(), "dialogs.md");
        qobject_cast<QDialog*>(modal)->reject();
    });
    QMessageBox(QMessageBox::Information, "Taxonomic Quillon", "Text", QMessageBox::Ok, &main).exec();
}

}  // namespace
}  // namespace quillon::ui
