// The commands of the main window for menus and toolbars: name, toolbar key, icon, keyboard shortcut. The
// captions come from the form.
#pragma once

#include <QString>
#include <span>

class QAction;
class QMainWindow;

namespace quillon::ui {

struct CommandSpec {
    const char* name;      // objectName, as the form names it
    const char* key;       // of the toolbar button; empty for a command without one
    const char* icon;      // file under :/icons, without its ending; empty for none
    const char* shortcut;  // in the toolkit's portable text; empty for none
};

std::span<const CommandSpec> Commands();

// Creates the actions of all commands, the menus and the two toolbars.
void BuildCommands(QMainWindow& window);
// The tool tip of an action: its caption and its keyboard shortcut.
QString ToolTipOf(const QAction& action);

}  // namespace quillon::ui
