// The help window of the program. It opens by the commands of the Help menu, and by F1 in a dialog.
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>

#include "ui/help_window.h"

namespace quillon::ui {

class Help : public QObject {
    Q_OBJECT
public:
    // `window` is the main window; `tabKey` returns the key of its current tab.
    Help(QWidget& window, std::function<QString()> tabKey);

    // Help, Contents and Help, Search: open at the page for the active window.
    void ShowContents();
    void ShowSearch();
    // nullptr before the first use.
    HelpWindow* Window() const { return help_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* Front() const;
    QString PageFor(const QWidget& front) const;
    HelpWindow& OpenAbove(QWidget& front);
    // A modal dialog blocks all windows except its children.
    void BelongTo(QWidget& front);

    QWidget& window_;
    std::function<QString()> tabKey_;
    QPointer<HelpWindow> help_;
};

}  // namespace quillon::ui
