// The dialog for one change track, worked with mouse and keys.
#include "ui/change_track_window.h"

#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>
#include <map>

#include "testkit/testkit.h"
#include "ui/access_keys.h"
#include "ui/binder.h"

namespace quillon::ui {
namespace {

class ChangeTrackWindowTest : public testing::Test {
protected:
    ChangeTrackWindowTest() {
        data.Make();
        data.state.currentTaxon.qb_id = 2;
        data.state.currentTaxon.unit_name1 = "Orcinus";
        track = std::make_unique<curation::FrmChgTrk>(data.state, data.engine, data.prompter);
        window = std::make_unique<ChangeTrackWindow>(*track, nullptr);
        window->show();
    }
    template <typename Widget>
    Widget* Get(const char* name) {
        return window->findChild<Widget*>(name);
    }
    void Click(const char* name) { QTest::mouseClick(Get<QPushButton>(name), Qt::LeftButton); }
    // Access keys that two widgets of the shown page, or of the dialog itself, share.
    std::string Clashes() {
        std::map<QChar, int> users;
        for (QWidget* widget : window->findChildren<QWidget*>())
            if (widget->isVisible() && !AccessKeyOf(*widget).isNull()) ++users[AccessKeyOf(*widget)];
        std::string clashes;
        for (const auto& [key, count] : users)
            if (count > 1) clashes += QString(key).toStdString();
        return clashes;
    }

    testkit::DataSetFixture data;
    std::unique_ptr<curation::FrmChgTrk> track;
    std::unique_ptr<ChangeTrackWindow> window;
};

TEST_F(ChangeTrackWindowTest, EveryControlHasItsWidget) {
    EXPECT_EQ(NamesWithoutPartner(track->form, *window), QStringList());
    EXPECT_EQ(window->windowTitle(), "Change Tracking");
}

TEST_F(ChangeTrackWindowTest, ShowsOnePageWithAccessKeysOfItsOwn) {
    auto* tabs = Get<QTabBar>("TabStrip1");
    ASSERT_EQ(tabs->count(), 5);
    const char* grids[] = {nullptr, "grdComments", "grdPublications", "grdExperts", "grdOtherSources"};
    for (int page = 0; page < tabs->count(); ++page) {
        tabs->setCurrentIndex(page);
        for (int other = 1; other < tabs->count(); ++other)
            EXPECT_EQ(Get<QTableWidget>(grids[other])->isVisible(), other == page) << page << " " << other;
        EXPECT_EQ(Clashes(), "") << page;
    }
    EXPECT_FALSE(Get<QPushButton>("cmdExpModify")->isVisible());
}

TEST_F(ChangeTrackWindowTest, OKStoresAndCloses) {
    Click("cmdOK");
    EXPECT_EQ(data.prompter.messages.back(), "A Change Operation is required!");
    EXPECT_TRUE(window->isVisible());
    Get<QComboBox>("cboOperation")->setFocus();
    QTest::keyClicks(Get<QComboBox>("cboOperation"), "Name");
    QTest::keyClicks(Get<QComboBox>("cboReason"), "Data");
    Click("cmdOK");
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(data.Dump("SELECT change_reason FROM qb_change_tracks"), "Data entry correction\n");
}

}  // namespace
}  // namespace quillon::ui
