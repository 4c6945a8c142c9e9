#include "navigation/tb_btn_mgr.h"

#include <gtest/gtest.h>

namespace quillon::navigation {
namespace {

struct Bar {
    Form form{"Bar"};
    ButtonControl cut{form, "cut"};
    ButtonControl copy{form, "copy"};
    ButtonControl mnuCut{form, "mnuCut"};
    ButtonControl mnuOther{form, "mnuOther"};
};

class Buttons : public testing::Test {
protected:
    void SetUp() override {
        manager.Init({{"cut", &bar.cut}, {"copy", &bar.copy}});
        manager.Add("cut", true, &bar.mnuCut);
        manager.Add("copy", true);
    }
    // Which of the buttons and of the menu item are enabled.
    std::string Lit() const {
        return std::string(bar.cut.Enabled() ? "cut " : "") + (bar.copy.Enabled() ? "copy " : "") +
               (bar.mnuCut.Enabled() ? "mnuCut" : "");
    }

    Bar bar;
    TBBtnMgr manager;
};

TEST_F(Buttons, TheMaskDisablesAllAndRestoresThem) {
    EXPECT_FALSE(manager.IsMasked());
    manager.MaskAll();
    EXPECT_TRUE(manager.IsMasked());
    EXPECT_EQ(Lit(), "");
    manager.UnmaskAll();
    EXPECT_EQ(Lit(), "cut copy mnuCut");
    EXPECT_FALSE(manager.IsMasked());
}

TEST_F(Buttons, AButtonDisabledUnderTheMaskStaysDisabled) {
    manager.MaskAll();
    manager.Disable("copy");
    manager.UnmaskAll();
    EXPECT_EQ(Lit(), "cut mnuCut");
}

TEST_F(Buttons, AButtonEnabledUnderTheMaskIsEnabledAfterwards) {
    manager.Disable("cut", &bar.mnuCut);
    EXPECT_EQ(Lit(), "copy ");
    manager.MaskAll();
    manager.Enable("cut", &bar.mnuCut);
    EXPECT_EQ(Lit(), "");
    manager.UnmaskAll();
    EXPECT_EQ(Lit(), "cut copy mnuCut");
}

TEST_F(Buttons, MaskingTwiceIsUndoneOnce) {
    manager.MaskAll();
    manager.MaskAll();
    manager.UnmaskAll();
    EXPECT_EQ(Lit(), "cut copy mnuCut");
}

TEST_F(Buttons, ADisabledButtonIsLeftAloneByTheMask) {
    manager.ChangeStateTo("copy", false);
    bar.copy.SetEnabled(true);
    manager.MaskAll();
    EXPECT_EQ(Lit(), "copy ");
    bar.copy.SetEnabled(false);
    manager.UnmaskAll();
    EXPECT_EQ(Lit(), "cut mnuCut");
}

TEST_F(Buttons, TheMenuItemFollowsOnlyWhereOneIsGiven) {
    manager.Disable("cut");
    EXPECT_EQ(Lit(), "copy mnuCut");
    manager.Disable("cut", &bar.mnuOther);
    EXPECT_EQ(Lit(), "copy ") << "the item of the key, whichever is given";
    EXPECT_TRUE(bar.mnuOther.Enabled());
}

TEST_F(Buttons, AKeyWithoutAMenuItemChangesItsButtonAlone) {
    manager.Disable("copy", &bar.mnuOther);
    EXPECT_EQ(Lit(), "cut mnuCut");
    EXPECT_TRUE(bar.mnuOther.Enabled());
}

TEST_F(Buttons, AnUnknownKeyIsIgnored) {
    manager.Enable("help");
    manager.Add("help", true);
    manager.Disable("help");
    manager.Enable("help");
    manager.MaskAll();
    EXPECT_EQ(Lit(), "");
}

TEST_F(Buttons, InitTakesItsKeysInOneState) {
    bar.cut.SetEnabled(false);
    bar.copy.SetEnabled(false);
    manager.Init({{"cut", &bar.cut}, {"copy", &bar.copy}}, kEditKeys, true);
    EXPECT_EQ(Lit(), "mnuCut") << "nothing is shown yet";
    manager.Disable("paste");
    manager.MaskAll();
    manager.UnmaskAll();
    EXPECT_EQ(Lit(), "cut copy mnuCut");
    EXPECT_FALSE(TBBtnState().State);
}

}  // namespace
}  // namespace quillon::navigation
