// The one help window of the program, and when it opens: by the commands of the menu Help, and by F1 in a
// dialog.
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>

#include "ui/help_window.h"

namespace quillon::ui {

class Help : public QObject {
    Q_OBJECT
public:
    // `window` is the main window; `tabKey` gives the key of the tab that it shows.
    Help(QWidget& window, std::function<QString()> tabKey);

    // Help, Contents and Help, Search: at the page for what is in front.
    void ShowContents();
    void ShowSearch();
    // Nothing before the first use.
    HelpWindow* Window() const { return help_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* Front() const;
    QString PageFor(const QWidget& front) const;
    HelpWindow& OpenAbove(QWidget& front);
    // A modal dialog lets through only windows that belong to it.
    void BelongTo(QWidget& front);

    QWidget& window_;
    std::function<QString()> tabKey_;
    QPointer<HelpWindow> help_;
};

}  // namespace quillon::ui
