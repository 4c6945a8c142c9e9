// A signal that asks the program to end.
#include "ui/quit_signals.h"

#include <signal.h>

#include "every_window.h"

namespace quillon::ui {
namespace {

class QuitSignalsTest : public EveryWindow, public testing::WithParamInterface<int> {};

TEST_P(QuitSignalsTest, ASignalCancelsTheJobAndEndsTheEventLoop) {
    program.EndOnSignals();
    QTimer::singleShot(0, [] { raise(GetParam()); });
    EXPECT_EQ(QApplication::exec(), 3);
    EXPECT_TRUE(program.State().gBatchCancel);
}

TEST_P(QuitSignalsTest, ADialogThatIsOpenClosesWithoutAQuestion) {
    program.EndOnSignals();
    program.State().RecordDirty = true;
    bool returned = false;
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(0, [] { raise(GetParam()); });
        program.Outside().ShowModal("FrmAbout");
        returned = true;
    });
    EXPECT_EQ(QApplication::exec(), 3);
    EXPECT_TRUE(returned);
    EXPECT_EQ(user.messages, std::vector<std::string>{});
}

TEST_P(QuitSignalsTest, ASignalIsSeenBeforeTheEventLoopTakesIt) {
    bool quit = false;
    const QuitSignals taken([&] { quit = true; });
    EXPECT_FALSE(taken.IsWaiting());
    raise(GetParam());
    EXPECT_TRUE(taken.IsWaiting());
    EXPECT_FALSE(quit);
    QApplication::processEvents();
    EXPECT_TRUE(quit);
    EXPECT_FALSE(taken.IsWaiting());
}

INSTANTIATE_TEST_SUITE_P(Signals, QuitSignalsTest, testing::Values(SIGHUP, SIGINT, SIGTERM));

}  // namespace
}  // namespace quillon::ui
