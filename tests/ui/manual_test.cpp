// The manual and the program: every page is carried and reached, what it names is there, and every tab and
// form has its page.
#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QtTest>
#include <QtWidgets>

#include "testkit/testkit.h"
#include "ui/desktop_program.h"
#include "ui/help_pages.h"
#include "ui/help_window.h"
#include "ui/rec_view_commands.h"
#include "ui/text_convert.h"

namespace quillon::ui {
namespace {

const QString kFolder = QString(QUILLON_SOURCE_DIR) + "/docs/manual";

QString Source(const QString& page) {
    return ToQt(testkit::ReadFile(FromQt(kFolder + "/" + page)));
}

QStringList Files() {
    return QDir(kFolder).entryList({"*.md"}, QDir::Files, QDir::Name);
}

QStringList Sorted(QStringList texts) {
    texts.sort();
    return texts;
}

QStringList Captured(const QString& text, const char* pattern) {
    QStringList found;
    for (auto match = QRegularExpression(pattern).globalMatch(text); match.hasNext();)
        found << match.next().captured(1);
    return found;
}

TEST(Manual, EveryPageIsInTheProgram) {
    HelpPages pages;
    EXPECT_EQ(FromQt(QDir(":/manual").entryList(QDir::Files, QDir::Name).join(" ")),
              FromQt(Files().join(" ")));
    for (const QString& page : Files()) {
        QFile carried(":/manual/" + page);
        ASSERT_TRUE(carried.open(QIODevice::ReadOnly));
        EXPECT_EQ(QString::fromUtf8(carried.readAll()), Source(page)) << FromQt(page);
    }
}

TEST(Manual, TheFirstPageListsEveryPageOnce) {
    EXPECT_EQ(FromQt(Sorted(HelpPages().Pages()).join(" ")), FromQt(Files().join(" ")));
}

TEST(Manual, EveryLinkLeadsToAPage) {
    const QStringList files = Files();
    for (const QString& page : files) {
        for (const QString& link : Captured(Source(page), R"(\]\(([^)]*)\))"))
            EXPECT_TRUE(files.contains(link)) << FromQt(page + ": " + link);
    }
}

TEST(Manual, EveryPageButTheFirstIsLinkedFromAnother) {
    QStringList linked = {kFirstHelpPage};
    for (const QString& page : Files())
        if (page != kFirstHelpPage) linked << Captured(Source(page), R"(\]\(([^)]*)\))");
    linked.removeDuplicates();
    EXPECT_EQ(FromQt(Sorted(linked).join(" ")), FromQt(Files().join(" ")));
}

TEST(Manual, EveryKeyHasAPageThatIsThere) {
    for (const QString& key : HelpKeys()) EXPECT_TRUE(Files().contains(HelpPageFor(key))) << FromQt(key);
    EXPECT_EQ(HelpPageFor("no such form"), "");
}

TEST(Manual, EveryTabAndFormHasItsPage) {
    const QStringList keys = HelpKeys();
    DesktopProgram program;
    for (const auto& tab : program.RecView().Controls().TabStrip1.Tabs())
        EXPECT_TRUE(keys.contains(ToQt(tab.key))) << tab.key;
    for (const QString& form : program.Outside().Forms()) EXPECT_TRUE(keys.contains(form)) << FromQt(form);
}

TEST(Manual, NamesTheKeyOfEveryCommand) {
    const QString page = Source("keys.md");
    DesktopProgram program;
    for (const CommandSpec& command : Commands()) {
        if (*command.shortcut == 0) continue;
        const QString caption = program.Window().findChild<QAction*>(command.name)->text().remove('&');
        const QString row = QString("| **%1** | %2 |").arg(caption, command.shortcut);
        EXPECT_TRUE(page.contains(row)) << FromQt(row);
    }
}

TEST(HelpCommands, OpenTheHelpAtTheTab) {
    DesktopProgram program;
    RecViewWindow& window = program.Window();
    window.show();
    program.RecView().Controls().TabStrip1.SetSelectedIndex(3);
    window.findChild<QAction*>("mnuHContents")->trigger();
    auto* help = window.findChild<HelpWindow*>("HelpWindow");
    ASSERT_NE(help, nullptr);
    EXPECT_TRUE(help->isVisible());
    EXPECT_EQ(HelpPageAt(help->findChild<QTextBrowser*>("txtPage")->source()), "tab-synonyms.md");
    window.findChild<QAction*>("mnuHSearch")->trigger();
    EXPECT_EQ(help->focusWidget()->objectName(), "txtSearch");
}

}  // namespace
}  // namespace quillon::ui
