// Access keys and names for assistive technology, in every window of the program.
#include "ui/access_keys.h"

#include <map>

#include "every_window.h"
#include "ui/named.h"

namespace quillon::ui {
namespace {

using AccessKeys = EveryWindow;

bool IsButton(const QWidget& widget) {
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);  // one without a text has a label
    return button != nullptr && !button->text().isEmpty() && !widget.inherits("QToolButton");
}

// The widgets that can be on the screen together: those of the window and of its visible page.
QList<QWidget*> WidgetsOf(const QWidget& window, const QWidget* page) {
    QList<QWidget*> widgets;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        bool isElsewhere = widget->window() != &window;
        for (const QWidget* at = widget; at != nullptr && at != &window; at = at->parentWidget())
            isElsewhere |= at != page && at->objectName().startsWith("RVPanel");
        if (!isElsewhere && !widget->objectName().startsWith("qt_")) widgets << widget;
    }
    return widgets;
}

// "name key, name key ..." of those that share a key.
std::string Clashes(const QWidget& window, const QList<QWidget*>& widgets) {
    std::map<QChar, QStringList> users;
    for (const QMenuBar* bar : window.findChildren<QMenuBar*>())
        for (const QAction* action : bar->actions()) users[AccessKeyOf(*action)] << action->text();
    for (const QWidget* widget : widgets) users[AccessKeyOf(*widget)] << widget->objectName();
    users.erase(QChar());
    QStringList clashes;
    for (const auto& [key, names] : users)
        if (names.size() > 1) clashes << QString(key) + ": " + names.join(' ');
    return clashes.join(", ").toStdString();
}

std::string ButtonsAndGroupsWithout(const QList<QWidget*>& widgets) {
    QStringList names;
    for (const QWidget* widget : widgets) {
        const auto* group = qobject_cast<const QGroupBox*>(widget);
        if (!IsButton(*widget) && (group == nullptr || group->title().isEmpty())) continue;
        if (AccessKeyOf(*widget).isNull()) names << widget->objectName();
    }
    return names.join(' ').toStdString();
}

// Input widgets that a screen reader could not name.
std::string FieldsWithoutName(const QList<QWidget*>& widgets) {
    QStringList names;
    for (const QWidget* widget : widgets) {
        const bool isField =
            qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget) ||
            qobject_cast<const QPlainTextEdit*>(widget) || qobject_cast<const QProgressBar*>(widget) ||
            (qobject_cast<const QAbstractItemView*>(widget) &&
             qobject_cast<const QComboBox*>(widget->parentWidget()->parentWidget()) == nullptr);
        if (isField && !widget->inherits("QHeaderView") && widget->accessibleName().isEmpty())
            names << widget->parentWidget()->objectName() + "/" + widget->objectName();
    }
    return names.join(' ').toStdString();
}

TEST_F(AccessKeys, NoneClashesInTheMainWindowAndNothingIsWithoutName) {
    for (QWidget* page : program.Window().findChildren<QWidget*>(QRegularExpression("^RVPanel"))) {
        const QList<QWidget*> widgets = WidgetsOf(program.Window(), page);
        EXPECT_EQ(Clashes(program.Window(), widgets), "") << page->objectName().toStdString();
        EXPECT_EQ(ButtonsAndGroupsWithout(widgets), "") << page->objectName().toStdString();
        EXPECT_EQ(FieldsWithoutName(widgets), "") << page->objectName().toStdString();
    }
}

TEST_F(AccessKeys, NoneClashesInADialogAndNothingIsWithoutName) {
    WithEachDialog([](FormDialog& dialog) {
        const QList<QWidget*> widgets = WidgetsOf(dialog, nullptr);
        EXPECT_EQ(Clashes(dialog, widgets), "") << dialog.objectName().toStdString();
        EXPECT_EQ(ButtonsAndGroupsWithout(widgets), "") << dialog.objectName().toStdString();
        EXPECT_EQ(FieldsWithoutName(widgets), "") << dialog.objectName().toStdString();
    });
}

TEST_F(AccessKeys, NoneClashesInAMenu) {
    for (const QMenu* menu : program.Window().findChildren<QMenu*>()) {
        std::map<QChar, QStringList> users;
        for (const QAction* action : menu->actions())
            if (!action->isSeparator()) users[AccessKeyOf(*action)] << action->text();
        for (const auto& [key, names] : users) {
            EXPECT_FALSE(key.isNull()) << names.join(' ').toStdString();
            EXPECT_EQ(names.size(), 1) << names.join(' ').toStdString();
        }
    }
}

TEST(AccessKey, AClashIsSolvedWithAnotherLetterOfTheCaption) {
    QWidget window;
    auto* first = Named<QPushButton>(&window, "first");
    auto* second = Named<QPushButton>(&window, "second");
    auto* third = Named<QPushButton>(&window, "third");
    ShowCaption(*first, "&Save");
    ShowCaption(*second, "&Send");
    ShowCaption(*third, "Next Page");
    AssignAccessKeys(window);
    EXPECT_EQ(first->text() + "|" + second->text() + "|" + third->text(), "&Save|S&end|&Next Page");
    ShowCaption(*second, "&Send");
    EXPECT_EQ(second->text(), "S&end") << "the same caption keeps its key";
    ShowCaption(*second, "&Name");
    EXPECT_EQ(second->text() + "|" + third->text(), "&Name|Next &Page");
}

TEST(AccessKey, AButtonWithoutAFreeLetterTakesADigit) {
    QWidget window;
    auto* first = Named<QCheckBox>(&window, "first");
    auto* second = Named<QCheckBox>(&window, "second");
    second->setAccessibleName("Hybrid");
    ShowCaption(*first, "X");
    ShowCaption(*second, "X");
    AssignAccessKeys(window);
    EXPECT_EQ(first->text(), "&X");
    EXPECT_EQ(AccessKeyOf(*second), QChar('1'));
    EXPECT_EQ(second->toolTip(), "Hybrid (Alt+1)");
}

}  // namespace
}  // namespace quillon::ui
