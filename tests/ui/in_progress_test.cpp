// The progress window of a task: when it comes, what it shows, and that it goes.
#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include "ui/binder.h"
#include "ui/in_progress_window.h"

namespace quillon::ui {
namespace {

using std::chrono_literals::operator""h;
using std::chrono_literals::operator""ms;

class InProgressTest : public testing::Test {
protected:
    InProgressTest() {
        owner.show();
        owner.activateWindow();
        progress.SetWindow(&owner);
    }
    // Lets the task's window come.
    InProgressWindow& Appear() {
        EXPECT_TRUE(QTest::qWaitFor([&] { return progress.Window() != nullptr; }));
        return *progress.Window();
    }

    QWidget owner;
    InProgress progress{0ms};
};

TEST_F(InProgressTest, ShowsATaskFromBeginningToEnd) {
    progress.UpdateValue(70);
    progress.NewTask("Loading Taxon Data");
    progress.SetStatus("Loading...");
    InProgressWindow& window = Appear();
    auto* bar = window.findChild<QProgressBar*>("theBar");
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(window.isModal());
    EXPECT_EQ(window.windowTitle(), "Loading Taxon Data");
    EXPECT_EQ(window.findChild<QLabel*>("lblIPStatus")->text(), "Loading...");
    EXPECT_EQ(bar->value(), 0);
    progress.SetMax(40);
    progress.Increment(15);
    EXPECT_EQ(bar->value(), 15);
    progress.UpdateValue(99);
    EXPECT_EQ(bar->value(), 40);
    progress.SetMin(10);
    progress.UpdateValue(-3);
    EXPECT_EQ(bar->value(), 10);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible()) << "it closes with its task only";
}

TEST_F(InProgressTest, TheWindowBelongsToTheMainWindowAndGoesWithTheTask) {
    progress.NewTask("Loading Taxon Data");
    const QPointer<InProgressWindow> window = &Appear();
    EXPECT_EQ(window->parentWidget(), &owner);
    progress.EndTask();
    EXPECT_EQ(progress.Window(), nullptr);
    EXPECT_TRUE(window.isNull());
    EXPECT_EQ(owner.findChildren<QDialog*>().size(), 0);
}

TEST_F(InProgressTest, TheWindowTakesNoFocus) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&owner));
    progress.NewTask("Loading Taxon Data");
    const InProgressWindow& window = Appear();
    EXPECT_TRUE(window.testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_EQ(QApplication::activeWindow(), &owner);
}

TEST_F(InProgressTest, AShortTaskShowsNoWindow) {
    InProgress slow(1h);
    slow.SetWindow(&owner);
    slow.NewTask("Loading Taxon Data");
    slow.UpdateValue(50);
    QCoreApplication::processEvents();
    EXPECT_EQ(slow.Window(), nullptr);
    progress.NewTask("Loading Taxon Data");
    progress.EndTask();
    progress.NewTask("Another");
    EXPECT_EQ(Appear().windowTitle(), "Another") << "the window of a task that has ended stays away";
}

TEST_F(InProgressTest, NoWindowComesWhileTheMainWindowIsNotShown) {
    owner.hide();
    progress.NewTask("Loading Taxon Data");
    bool turned = false;
    QTimer::singleShot(1, [&] { turned = true; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return turned; }));
    EXPECT_EQ(progress.Window(), nullptr);
}

TEST(InProgressWindow, HasAWidgetForEachControl) {
    FrmInProgress form;
    const InProgressWindow window(form, nullptr);
    EXPECT_EQ(NamesWithoutPartner(form.form, window).join(" "), "");
}

}  // namespace
}  // namespace quillon::ui
