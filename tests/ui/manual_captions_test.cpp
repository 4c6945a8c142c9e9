// What the manual sets in bold stands on the screen: a menu, a command, a button, a tab, a label, a column.
#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QtTest>
#include <QtWidgets>

#include "testkit/testkit.h"
#include "ui/desktop_program.h"
#include "ui/help_pages.h"
#include "ui/text_convert.h"

namespace quillon::ui {
namespace {

const QString kFolder = QString(QUILLON_SOURCE_DIR) + "/docs/manual";
const QStringList kExample = {"set like this"};  // the first page explains bold text with it

class Captions {
public:
    void CollectFrom(const QWidget& window) {
        Add(window.windowTitle());
        for (const auto* action : window.findChildren<QAction*>()) Add(action->text());
        for (const auto* menu : window.findChildren<QMenu*>()) Add(menu->title());
        for (const auto* button : window.findChildren<QAbstractButton*>()) Add(button->text());
        for (const auto* label : window.findChildren<QLabel*>()) Add(label->text());
        for (const auto* group : window.findChildren<QGroupBox*>()) Add(group->title());
        for (const auto* tabs : window.findChildren<QTabBar*>())
            for (int i = 0; i < tabs->count(); ++i) Add(tabs->tabText(i));
        for (const auto* grid : window.findChildren<QTableView*>())
            for (int i = 0; i < grid->model()->columnCount(); ++i)
                Add(grid->model()->headerData(i, Qt::Horizontal).toString());
    }
    // A caption, or the captions of a way through the menus, "File, Import...".
    bool Has(const QString& bold) const {
        if (captions_.contains(bold)) return true;
        const QStringList way = bold.split(", ");
        return std::all_of(way.begin(), way.end(),
                           [&](const QString& step) { return captions_.contains(step); });
    }

private:
    void Add(QString caption) { captions_.insert(caption.remove('&').simplified()); }
    QSet<QString> captions_;
};

// Closes whatever comes up, without asking it.
void CollectFromForms(DesktopProgram& program, Captions& captions) {
    for (const QString& form : program.Outside().Forms()) {
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            if (auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                captions.CollectFrom(*modal);
                modal->done(QDialog::Rejected);
            }
        });
        timer.start(0);
        program.Outside().ShowModal(FromQt(form));
    }
}

TEST(ManualCaptions, AreThoseOfTheProgram) {
    testkit::TempDir dir;
    DesktopProgram program(nullptr, dir.path(), dir.File("Qln.Ini"));
    program.State().gKingdomName = "Animalia";
    program.State().gPrefRank = "Kingdom";
    program.Lifecycle().MakeDataSet(dir.File("test.mdb"));
    program.RecView().ShowDataSet();
    Captions captions;
    captions.CollectFrom(program.Window());
    CollectFromForms(program, captions);
    // The button below the tabs says the one or the other, as the mode is.
    program.RecView().Controls().cmdOK.SetCaption("&Save Changes");
    captions.CollectFrom(program.Window());

    static const QRegularExpression bold(R"(\*\*([^*]+)\*\*)");
    const QStringList pages = HelpPages().Pages();
    ASSERT_TRUE(pages.contains("preferences.md"));
    for (const QString& page : pages) {
        const QString text = ToQt(testkit::ReadFile(FromQt(kFolder + "/" + page)));
        for (auto match = bold.globalMatch(text); match.hasNext();) {
            const QString caption = match.next().captured(1).simplified();
            EXPECT_TRUE(captions.Has(caption) || kExample.contains(caption)) << FromQt(page + ": " + caption);
        }
    }
    EXPECT_FALSE(captions.Has("Never, Said"));
}

}  // namespace
}  // namespace quillon::ui
