// The help window: contents on the left, a page of the manual on the right, a search over all pages. It shows
// only pages built into the program. Help (ui/help.h) opens it.
#pragma once

#include <QKeySequence>
#include <QList>
#include <QWidget>

#include "ui/help_pages.h"

class QAction;
class QLabel;
class QLineEdit;
class QTextBrowser;
class QTreeWidget;
class QTreeWidgetItem;

namespace quillon::ui {

class HelpWindow : public QWidget {
    Q_OBJECT
public:
    explicit HelpWindow(QWidget* parent);

    // Shows a page of the manual, or the first one when there is no such page.
    void ShowPage(const QString& page);
    // Moves the focus to the contents, or to the search field.
    void FocusContents();
    void FocusSearch();

protected:
    void changeEvent(QEvent* event) override;

private:
    QWidget* BuildLeft();
    QWidget* BuildRight();
    void BuildActions();
    QAction* MakeAction(const char* name, const char* icon, const QString& text, const QKeySequence& keys);
    void FillContents();
    void ConnectAll();

    QTreeWidgetItem* ItemOf(const QString& page) const;
    void PageShown(const QUrl& address);
    void Search();
    void ShowCounts(const QList<qsizetype>& counts);
    void MarkHits();
    void ShowHit(qsizetype hit);
    // Goes to the next or previous hit, on this page or on the next one with hits.
    void Step(bool forward);
    void StepToPage(bool forward);
    void SwitchSides();
    void Escape();

    HelpPages pages_;
    QLineEdit* search_ = nullptr;
    QTreeWidget* contents_ = nullptr;
    QLabel* found_ = nullptr;
    QTextBrowser* page_ = nullptr;
    QAction* back_ = nullptr;
    QAction* forward_ = nullptr;
    QAction* first_ = nullptr;
    QString shownPage_;
    QList<HelpHit> hits_;  // on the page that is shown
    qsizetype hit_ = -1;   // index of the current hit
};

}  // namespace quillon::ui
