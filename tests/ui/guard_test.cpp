// No exception leaves a slot or an event of a window: every command fails here, and the program goes on.
#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>
#include <new>
#include <stdexcept>

#include "every_window.h"
#include "ui/application.h"
#include "ui/binder.h"
#include "ui/guard.h"
#include "ui/named.h"

namespace quillon::ui {
namespace {

const std::string kFailure = "Failed here";

[[noreturn]] void FailHere() {
    throw std::runtime_error("here");
}

class GuardTest : public EveryWindow {
protected:
    // Clicks every button of the form in its window, after giving it a rule that fails.
    void FailEveryCommand(Form& form, QWidget& window) {
        for (Control* control : form.Controls()) {
            auto* button = dynamic_cast<ButtonControl*>(control);
            if (button == nullptr) continue;
            button->SetEnabled(true);
            button->OnClick(FailHere);
            user.messages.clear();
            Click(window, ToQt(button->Name()));
            EXPECT_FALSE(user.messages.empty() || user.messages.back() != kFailure) << button->Name();
        }
    }
    static void Click(QWidget& window, const QString& name) {
        if (auto* action = window.findChild<QAction*>(name)) return action->trigger();
        if (auto* button = window.findChild<QAbstractButton*>(name)) button->click();
    }
};

TEST_F(GuardTest, EveryCommandOfTheMainWindowMayFail) {
    FailEveryCommand(program.RecView().Controls().form, program.Window());
}

TEST_F(GuardTest, EveryCommandOfEveryDialogMayFail) {
    WithEachDialog([this](FormDialog& dialog) {
        FailEveryCommand(dialog.Model(), dialog);
        dialog.Model().OnUserClose(FailHere);
        user.messages.clear();
        dialog.reject();
        EXPECT_EQ(user.messages, std::vector<std::string>{kFailure}) << dialog.Model().Name();
    });
}

TEST_F(GuardTest, EveryKindOfControlMayFail) {
    Form form("Kinds");
    CheckControl check(form, "check");
    OptionControl option(form, "option", "group");
    TextControl line(form, "line"), box(form, "box");
    ComboControl combo(form, "combo");
    ListControl list(form, "list"), view(form, "view");
    GridControl grid(form, "grid", {{"Name"}});
    TabStripControl tabs(form, "tabs", {{"one", "One"}, {"two", "Two"}});
    for (ChoiceControl* choices : std::initializer_list<ChoiceControl*>{&combo, &list, &view})
        choices->SetTexts({"one", "two"});
    grid.AddRow({"one"});
    QWidget window;
    auto* checkBox = Named<QCheckBox>(&window, "check");
    auto* radio = Named<QRadioButton>(&window, "option");
    auto* edit = Named<QLineEdit>(&window, "line");
    auto* text = Named<QPlainTextEdit>(&window, "box");
    auto* comboBox = Named<QComboBox>(&window, "combo");
    auto* widget = Named<QListWidget>(&window, "list");
    auto* listView = Named<QListView>(&window, "view");
    auto* table = Named<QTableWidget>(&window, "grid");
    auto* bar = Named<QTabBar>(&window, "tabs");
    Bind(form, window);
    for (Control* control : form.Controls()) control->OnEdit(FailHere);
    const std::vector<std::function<void()>> acts = {
        [&] { checkBox->click(); },
        [&] { radio->click(); },
        [&] { QTest::keyClick(edit, 'x'); },
        [&] { QTest::keyClick(text, 'x'); },
        [&] { QTest::keyClick(comboBox, 'x'); },
        [&] { widget->setCurrentRow(1); },
        [&] { listView->setCurrentIndex(listView->model()->index(1, 0)); },
        [&] { table->setCurrentCell(0, 0); },
        [&] { bar->setCurrentIndex(1); }};
    ASSERT_EQ(acts.size(), form.Controls().size());
    for (std::size_t i = 0; i < acts.size(); ++i) {
        user.messages.clear();
        acts[i]();
        EXPECT_EQ(user.messages, std::vector<std::string>{kFailure}) << form.Controls()[i]->Name();
    }
}

// Throws from the handler of an event.
class FailingWidget : public QWidget {
public:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::User) throw std::bad_alloc();
        return QWidget::event(event);
    }
};

TEST_F(GuardTest, AnEventMayFailForLackOfMemory) {
    FailingWidget widget;
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&widget, &event);
    EXPECT_EQ(user.messages, std::vector<std::string>{"Not enough memory."});
}

TEST_F(GuardTest, ADelayedCallMayFail) {
    Later(&program.Window(), FailHere);
    QCoreApplication::processEvents();
    EXPECT_EQ(user.messages, std::vector<std::string>{kFailure});
}

TEST_F(GuardTest, ABoxShowsTheFailureWithoutAProgram) {
    auto& application = dynamic_cast<Application&>(*qApp);
    application.OnFailure(nullptr);
    QTimer::singleShot(0, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->text(), "Failed here");
        EXPECT_EQ(box->icon(), QMessageBox::Warning);
        box->accept();
    });
    Guard(FailHere);
}

// A connection that is not guarded is one that an exception could leave.
TEST(Guard, EveryConnectionAndDelayedCallOfTheWindowsIsGuarded) {
    const QRegularExpression bare(R"((?<![A-Za-z_])(QObject::connect|connect|singleShot)\()");
    QStringList places;
    QDirIterator files(QUILLON_SOURCE_DIR "/src/ui", {"*.cpp", "*.h"}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        if (!file.fileName().endsWith("/guard.h") && bare.match(text).hasMatch()) places << file.fileName();
    }
    EXPECT_EQ(places.join(' ').toStdString(), "");
}

}  // namespace
}  // namespace quillon::ui
