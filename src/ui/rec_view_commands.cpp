#include "ui/rec_view_commands.h"

#include <QtWidgets>

#include "ui/guard.h"
#include "ui/icons.h"

namespace quillon::ui {

namespace {

struct MenuSpec {
    const char* caption;
    // "-" for a separator; ">name" begins a submenu, "<" ends it.
    std::span<const char* const> commands;
};

constexpr CommandSpec kCommands[] = {
    {"mnuFNew", "new", "new", "Ctrl+Shift+N"},
    {"mnuFOpen", "open", "open", "Ctrl+O"},
    {"mnuFSaveAs", "", "", "Ctrl+Shift+S"},
    {"mnuSave", "save", "save", "Ctrl+S"},
    {"mnuFImport", "", "", "Ctrl+I"},
    {"mnuFValidate", "", "", ""},
    {"mnuFExport", "", "", "Ctrl+E"},
    {"mnuFPreferences", "", "", ""},
    {"mnuTaxonomy", "", "", ""},
    {"mnuFullRecord", "", "", ""},
    {"mnuFQuit", "", "", "Ctrl+Q"},
    {"mnuECut", "cut", "cut", "Ctrl+Shift+X"},
    {"mnuCopy", "copy", "copy", "Ctrl+Shift+C"},
    {"mnuPaste", "paste", "paste", "Ctrl+Shift+V"},
    {"mnuEUndo", "undo", "undo", "Ctrl+Shift+Z"},
    {"mnuEDelete", "delete", "delete", "Del"},
    {"mnuAuth", "", "", ""},
    {"mnuMerge", "", "", ""},
    {"mnuSplit", "", "", ""},
    {"mnuParent", "moveparent", "moveparent", "Alt+Up"},
    {"mnuFirst", "movefirst", "movefirst", "Alt+Home"},
    {"mnuPrev", "moveprev", "moveprev", "Alt+PgUp"},
    {"mnuNext", "movenext", "movenext", "Alt+PgDown"},
    {"mnuLast", "movelast", "movelast", "Alt+End"},
    {"mnuRankFirst", "", "", "Alt+Shift+Home"},
    {"mnuRankPrev", "", "", "Alt+Shift+PgUp"},
    {"mnuRankNext", "", "", "Alt+Shift+PgDown"},
    {"mnuRankLast", "", "", "Alt+Shift+End"},
    {"mnuAdd", "addnew", "addnew", "Ctrl+N"},
    {"mnuHContents", "", "", ""},
    {"mnuHSearch", "help", "help", "F1"},
    {"mnuHAbout", "", "", ""},
    {"hierarchy", "hierarchy", "hierarchy", "Ctrl+1"},
    {"alpha", "alpha", "alpha", "Ctrl+2"},
};

constexpr const char* kFileMenu[] = {"mnuFNew",
                                     "mnuFOpen",
                                     "mnuFSaveAs",
                                     "-",
                                     "mnuSave",
                                     "-",
                                     "mnuFImport",
                                     "mnuFExport",
                                     "mnuFValidate",
                                     "-",
                                     ">mnuFReports",
                                     "mnuTaxonomy",
                                     "mnuFullRecord",
                                     "<",
                                     "-",
                                     "mnuFPreferences",
                                     "-",
                                     "mnuFQuit"};
constexpr const char* kEditMenu[] = {"mnuEUndo",   "-", "mnuECut", "mnuCopy",  "mnuPaste", "-",
                                     "mnuEDelete", "-", "mnuAuth", "mnuMerge", "mnuSplit"};
constexpr const char* kRecordMenu[] = {"mnuAdd",       "-",           "mnuParent",   "mnuFirst",
                                       "mnuPrev",      "mnuNext",     "mnuLast",     "-",
                                       "mnuRankFirst", "mnuRankPrev", "mnuRankNext", "mnuRankLast"};
constexpr const char* kViewMenu[] = {"hierarchy", "alpha"};
constexpr const char* kHelpMenu[] = {"mnuHContents", "mnuHSearch", "-", "mnuHAbout"};
constexpr MenuSpec kMenus[] = {{"&File", kFileMenu},
                               {"&Edit", kEditMenu},
                               {"&Record", kRecordMenu},
                               {"&View", kViewMenu},
                               {"&Help", kHelpMenu}};

constexpr const char* kToolButtons[] = {"mnuFNew",   "mnuFOpen", "mnuSave",   "-",          "mnuECut",
                                        "mnuCopy",   "mnuPaste", "mnuEUndo",  "mnuEDelete", "-",
                                        "mnuParent", "mnuFirst", "mnuPrev",   "mnuNext",    "mnuLast",
                                        "mnuAdd",    "-",        "mnuHSearch"};
constexpr const char* kNavigateButtons[] = {"hierarchy", "alpha"};

QAction* ActionOf(QMainWindow& window, const QString& name) {
    return window.findChild<QAction*>(name);
}

void MakeActions(QMainWindow& window) {
    for (const CommandSpec& command : kCommands) {
        auto* action = new QAction(&window);
        action->setObjectName(command.name);
        action->setProperty("key", QString(command.key));
        if (*command.icon != 0) action->setIcon(Icon(command.icon));
        if (*command.shortcut != 0)
            action->setShortcut(QKeySequence(command.shortcut, QKeySequence::PortableText));
        Connect(action, &QAction::changed, action, [action] {
            const QSignalBlocker quiet(action);
            action->setToolTip(ToolTipOf(*action));
        });
    }
    auto* views = new QActionGroup(&window);
    for (const char* name : kNavigateButtons) {
        ActionOf(window, name)->setCheckable(true);
        views->addAction(ActionOf(window, name));
    }
}

void FillMenu(QMainWindow& window, QMenu* menu, std::span<const char* const> commands) {
    QList<QMenu*> open = {menu};
    for (const QString name : commands) {
        if (name == "-") {
            open.back()->addSeparator();
        } else if (name == "<") {
            open.pop_back();
        } else if (name.startsWith('>')) {
            auto* submenu = new QMenu(menu);
            submenu->menuAction()->setObjectName(name.mid(1));
            open.back()->addMenu(submenu);
            open.push_back(submenu);
        } else {
            open.back()->addAction(ActionOf(window, name));
        }
    }
}

void MakeToolBar(QMainWindow& window, const char* name, const QString& title,
                 std::span<const char* const> buttons) {
    QToolBar* bar = window.addToolBar(title);
    bar->setObjectName(name);
    bar->setAccessibleName(title);
    bar->setMovable(false);
    for (const QString button : buttons) {
        if (button == "-") {
            bar->addSeparator();
        } else {
            bar->addAction(ActionOf(window, button));
        }
    }
}

}  // namespace

std::span<const CommandSpec> Commands() {
    return kCommands;
}

QString ToolTipOf(const QAction& action) {
    QString text = action.text();
    text.remove('&').remove("...");
    const QString keys = action.shortcut().toString(QKeySequence::NativeText);
    return keys.isEmpty() ? text : QString("%1 (%2)").arg(text, keys);
}

void BuildCommands(QMainWindow& window) {
    MakeActions(window);
    for (const MenuSpec& menu : kMenus)
        FillMenu(window, window.menuBar()->addMenu(menu.caption), menu.commands);
    MakeToolBar(window, "TBar", "Records", kToolButtons);
    MakeToolBar(window, "TBarNavigate", "Explorer", kNavigateButtons);
}

}  // namespace quillon::ui
