#include "ui/clean_up_window.h"

#include <QtWidgets>

#include "ui/guard.h"
#include "ui/named.h"

namespace quillon::ui {

namespace {

constexpr int kListLines = 9, kListCharacters = 42;

// A caption above its list.
QVBoxLayout* ListWithCaption(QWidget* window, const char* label, const char* name) {
    auto* caption = Named<QLabel>(window, label);
    auto* list = Named<QListView>(window, name);
    caption->setBuddy(list);
    list->setMinimumSize(list->fontMetrics().averageCharWidth() * kListCharacters,
                         list->fontMetrics().lineSpacing() * kListLines);
    auto* layout = new QVBoxLayout;
    layout->addWidget(caption);
    layout->addWidget(list, 1);
    return layout;
}

}  // namespace

CleanUpWindow::CleanUpWindow(curation::CleanUp& form, QWidget* parent) : FormDialog(form.form, parent) {
    auto* like = Named<QLabel>(this, "LblLower");
    auto* pattern = Named<QLineEdit>(this, "TxtLower");
    like->setBuddy(pattern);
    auto* hint = Named<QLabel>(this, "lblWildcards");
    hint->setForegroundRole(QPalette::PlaceholderText);
    auto* replaceCaption = Named<QLabel>(this, "LblReplace");
    auto* top = new QGridLayout;
    top->addWidget(like, 0, 0);
    top->addWidget(pattern, 0, 1);
    top->addWidget(Named<QPushButton>(this, "cmdSimilar"), 0, 2);
    top->addWidget(hint, 1, 1, 1, 2);
    auto* lists = new QHBoxLayout;
    lists->addLayout(ListWithCaption(this, "lblToFix", "LstToFix"), 1);
    lists->addLayout(ListWithCaption(this, "lblNames", "LstNames"), 1);
    auto* replacement = Named<QComboBox>(this, "cboReplace");
    replaceCaption->setBuddy(replacement);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(replaceCaption);
    bottom->addWidget(replacement, 1);
    bottom->addWidget(Named<QPushButton>(this, "CmdFix"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(Named<QPushButton>(this, "CmdClose"));
    buttons->addWidget(Named<QPushButton>(this, "CmdHelp"));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(lists, 1);
    layout->addLayout(bottom);
    layout->addLayout(buttons);
    // Return in the pattern presses nothing.
    for (QPushButton* button : findChildren<QPushButton*>()) button->setAutoDefault(false);
    BindAll();
    auto* idle = new QTimer(this);
    Connect(idle, &QTimer::timeout, this, [&form, idle] {
        if (!form.Continue()) idle->stop();
    });
    form.MoreToRead.Connect([guard = QPointer<QTimer>(idle)] {
        if (guard) guard->start(0);
    });
    pattern->setFocus();
}

}  // namespace quillon::ui
