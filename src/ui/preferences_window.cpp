#include "ui/preferences_window.h"

#include <QtWidgets>
#include <initializer_list>

#include "ui/guard.h"
#include "ui/named.h"

namespace quillon::ui {

namespace {

constexpr int kPathWidth = 56;  // average characters

// A group box with the named buttons in columns.
template <typename Button>
QGroupBox* Group(QWidget* parent, const char* frame, std::initializer_list<const char*> names, int columns) {
    auto* group = Named<QGroupBox>(parent, frame);
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(20);
    int place = 0;
    for (const char* name : names) {
        grid->addWidget(Named<Button>(group, name), place / columns, place % columns);
        ++place;
    }
    grid->setRowStretch(grid->rowCount(), 1);
    return group;
}

QLabel* LabelFor(QWidget* parent, const char* name, QWidget* field) {
    auto* label = Named<QLabel>(parent, name);
    label->setBuddy(field);
    return label;
}

QLayout* Fields(QWidget* parent) {
    auto* ranks = Named<QComboBox>(parent, "cboPRank");
    auto* path = Named<QLineEdit>(parent, "txtDatabase");
    path->setMinimumWidth(path->fontMetrics().averageCharWidth() * kPathWidth);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->addWidget(LabelFor(parent, "lblPRank", ranks), 0, 0);
    grid->addWidget(ranks, 0, 1, Qt::AlignLeft);
    grid->addWidget(LabelFor(parent, "lblDatabase", path), 1, 0);
    grid->addWidget(path, 1, 1);
    grid->addWidget(Named<QPushButton>(parent, "CmdChange"), 1, 2);
    grid->setColumnStretch(1, 1);
    return grid;
}

QLayout* Groups(QWidget* parent) {
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(Group<QRadioButton>(parent, "fraAuthor", {"OptFullName", "OptAbbr"}, 1));
    row->addWidget(Group<QRadioButton>(parent, "fraWarnings", {"optNone", "optFirst", "optAll"}, 1));
    row->addWidget(
        Group<QCheckBox>(parent, "fraSave", {"chkRefs", "chkAuth", "chkParent", "chkComm", "chkAll"}, 2), 1);
    return row;
}

QLayout* Buttons(QWidget* parent) {
    auto* row = new QHBoxLayout;
    row->addWidget(Named<QPushButton>(parent, "CmdReset"));
    row->addStretch();
    auto* save = Named<QPushButton>(parent, "cmdSave");
    save->setDefault(true);
    row->addWidget(save);
    row->addWidget(Named<QPushButton>(parent, "cmdCancel"));
    return row;
}

}  // namespace

PreferencesWindow::PreferencesWindow(startup::FrmPreferences& form, QWidget* parent)
    : FormDialog(form.form, parent) {
    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(BuildMenus());
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(12);
    layout->addWidget(Group<QRadioButton>(
        this, "fraKingdom",
        {"OptMonera", "optProtozoa", "OptPlantae", "optFungi", "OptAnimalia", "optChromista"}, 3));
    layout->addLayout(Fields(this));
    layout->addLayout(Groups(this));
    layout->addStretch();
    layout->addLayout(Buttons(this));
    BindAll();
    for (auto* kingdom : findChild<QGroupBox*>("fraKingdom")->findChildren<QRadioButton*>())
        if (kingdom->isChecked()) kingdom->setFocus();
}

QMenuBar* PreferencesWindow::BuildMenus() {
    auto* bar = new QMenuBar(this);
    const auto command = [this](const char* name) {
        auto* action = new QAction(this);
        action->setObjectName(name);
        return action;
    };
    QMenu* file = bar->addMenu(tr("&File"));
    file->addAction(command("mnuFQuit"));
    BuildEditMenu(*bar);
    QMenu* help = bar->addMenu(tr("&Help"));
    help->addAction(command("mnuHContents"));
    help->addAction(command("mnuHSearch"));
    help->addSeparator();
    help->addAction(command("mnuHAbout"));
    return bar;
}

void PreferencesWindow::BuildEditMenu(QMenuBar& bar) {
    QMenu* edit = bar.addMenu(tr("&Edit"));
    const auto add = [&](const QString& text, QKeySequence::StandardKey keys, auto act) {
        auto* action = edit->addAction(text);
        action->setShortcut(keys);
        Connect(action, &QAction::triggered, this, [this, act] {
            if (field_) (field_->*act)();
        });
    };
    add(tr("&Undo"), QKeySequence::Undo, &QLineEdit::undo);
    edit->addSeparator();
    add(tr("Cu&t"), QKeySequence::Cut, &QLineEdit::cut);
    add(tr("&Copy"), QKeySequence::Copy, &QLineEdit::copy);
    add(tr("&Paste"), QKeySequence::Paste, &QLineEdit::paste);
    Connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        auto* field = qobject_cast<QLineEdit*>(now);
        if (field != nullptr && isAncestorOf(field)) field_ = field;
    });
}

}  // namespace quillon::ui
