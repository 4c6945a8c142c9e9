// A combo box over choices that are read in slices: what it reads, completes and takes.
#include "ui/choice_slice.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>
#include <algorithm>

#include "ui/binder.h"

namespace quillon::ui {
namespace {

// "N00000" to "N99999", each with its number as item data; counts the choices that it gives.
class Numbers : public ChoiceSource {
public:
    static constexpr int kCount = 100'000;
    std::size_t read = 0;

    Choices From(std::string_view text, std::size_t count) override {
        int first = 0, end = kCount;
        while (first < end) {
            const int middle = (first + end) / 2;
            (Text(middle) < text) ? first = middle + 1 : end = middle;
        }
        return Range(first, count);
    }
    Choices After(const Choice& choice, std::size_t count) override {
        return Range(static_cast<int>(choice.itemData) + 1, count);
    }
    Choices Before(const Choice& choice, std::size_t count) override {
        const int end = static_cast<int>(choice.itemData);
        const int wanted = std::min(end, static_cast<int>(count));
        return Range(end - wanted, static_cast<std::size_t>(wanted));
    }

private:
    static std::string Text(int number) { return fmt::format("N{:05}", number); }
    Choices Range(int first, std::size_t count) {
        Choices choices;
        for (int i = first; i < kCount && choices.size() < count; ++i) choices.push_back({Text(i), i});
        read += choices.size();
        return choices;
    }
};

class SlicedCombo : public testing::Test {
protected:
    void SetUp() override {
        combo->setObjectName("cboName1");
        line->setObjectName("txtName1");
        Bind(form, window);
        cboName1.SetSource(source);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        combo->setFocus();
    }
    std::string Text() const { return combo->currentText().toStdString(); }

    Form form{"FrmSample"};
    ComboControl cboName1{form, "cboName1"};
    TextControl txtName1{form, "txtName1"};
    std::shared_ptr<Numbers> source = std::make_shared<Numbers>();
    QWidget window;
    QComboBox* combo = new QComboBox(&window);
    QLineEdit* line = new QLineEdit(&window);
};

TEST_F(SlicedCombo, NothingIsReadBeforeItIsAskedFor) {
    cboName1.SetText("N50000");
    EXPECT_EQ(source->read, 0u);
    EXPECT_EQ(combo->count(), 0);
    EXPECT_EQ(Text(), "N50000");
}

TEST_F(SlicedCombo, TheListOpensAroundTheText) {
    cboName1.SetText("N50000");
    QTest::keyClick(combo, Qt::Key_Down);
    EXPECT_EQ(Text(), "N50001") << "the one below";
    EXPECT_EQ(cboName1.PickedData(), 50001);
    EXPECT_TRUE(cboName1.ChoicesPending()) << "the list as a whole is not read";
    EXPECT_LT(source->read, 500u);
    EXPECT_EQ(combo->itemText(combo->currentIndex()).toStdString(), "N50001");
}

TEST_F(SlicedCombo, ATypedTextIsCompletedFromTheSource) {
    QTest::keyClicks(combo->lineEdit(), "N7");
    EXPECT_EQ(Text(), "N70000");
    EXPECT_EQ(cboName1.Text(), "N70000");
    EXPECT_EQ(combo->lineEdit()->selectedText().toStdString(), "0000");
    QTest::keyClicks(combo->lineEdit(), "x");
    EXPECT_EQ(Text(), "N7x");
    EXPECT_EQ(cboName1.PickedData(), 0);
    EXPECT_LT(source->read, 100u);
}

TEST_F(SlicedCombo, ReturnTakesACompletionBeforeItReachesTheDefaultButton) {
    QWidget* parent = combo->parentWidget();
    struct Watch : QObject {
        int returns = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::KeyPress)
                returns += static_cast<QKeyEvent*>(event)->key() == Qt::Key_Return ? 1 : 0;
            return false;
        }
    } watch;
    parent->installEventFilter(&watch);
    QTest::keyClicks(combo->lineEdit(), "N7");
    QTest::keyClick(combo, Qt::Key_Return);
    EXPECT_EQ(watch.returns, 0);
    EXPECT_FALSE(combo->lineEdit()->hasSelectedText());
    EXPECT_EQ(cboName1.Text(), "N70000");
    QTest::keyClick(combo, Qt::Key_Return);
    EXPECT_EQ(watch.returns, 1);
}

TEST_F(SlicedCombo, TheSliceGrowsAtBothEnds) {
    cboName1.SetText("N50000");
    QStringListModel model;
    ChoiceSlice slice(cboName1, model);
    slice.Load();
    const int row = slice.Current();
    EXPECT_EQ(slice.At(row).itemData, 50000);
    const int up = slice.GrowUp();
    EXPECT_GT(up, 0);
    EXPECT_EQ(slice.Current(), row + up);
    EXPECT_GT(slice.GrowDown(), 0);
    for (int i = 1; i < model.rowCount(); ++i)
        ASSERT_EQ(slice.At(i).itemData, slice.At(i - 1).itemData + 1) << i;
    EXPECT_EQ(model.stringList().at(row + up).toStdString(), "N50000");
    cboName1.SetText("");
    slice.Load();
    EXPECT_EQ(slice.GrowUp(), 0) << "the first of all";
}

TEST_F(SlicedCombo, AnotherSourceTakesThePlaceOfTheSlice) {
    QTest::keyClick(combo, Qt::Key_Down);
    EXPECT_GT(combo->count(), 0);
    cboName1.SetTexts({"Cetus", "Orca"});
    EXPECT_EQ(combo->count(), 2);
    cboName1.SetSource(source);
    EXPECT_EQ(combo->count(), 0);
}

TEST_F(SlicedCombo, TheFocusIsReported) {
    std::string log;
    cboName1.OnLeave([&] { log += "left;"; });
    txtName1.OnEnter([&] { log += "entered;"; });
    line->setFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return log == "left;entered;"; })) << log;
}

TEST_F(SlicedCombo, AFieldMayStandOutsideTheTabOrder) {
    cboName1.SetTabStop(false);
    EXPECT_EQ(combo->focusPolicy() & Qt::TabFocus, 0);
    cboName1.SetTabStop(true);
    EXPECT_EQ(combo->focusPolicy(), Qt::StrongFocus);
}

}  // namespace
}  // namespace quillon::ui
