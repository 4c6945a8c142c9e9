#include "ui/change_track_window.h"

#include <QtWidgets>

#include "ui/access_keys.h"
#include "ui/guard.h"
#include "ui/pages/documentation_page.h"
#include "ui/pages/page_parts.h"

namespace quillon::ui {

namespace {

struct Field {
    const char* label;
    const char* name;
};
constexpr Field kPeople[] = {
    {"lblInitiator", "txtInitiator"}, {"lblReviewer", "txtReviewer"}, {"lblCertifier", "txtCertifier"}};

// A read-only id that can be copied.
void AddId(QHBoxLayout& line, QWidget* page, const QString& label, const char* name) {
    auto* id = Named<QLineEdit>(page, name);
    id->setReadOnly(true);
    id->setFocusPolicy(Qt::ClickFocus);
    id->setAccessibleName(label);
    line.addWidget(new QLabel(label, page));
    line.addWidget(id);
}

QWidget* BuildTrackPage(QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* fields = FieldLayout();
    int row = 0;
    for (const Field& choice : {Field{"lblOperation", "cboOperation"}, Field{"lblReason", "cboReason"}}) {
        auto* list = Named<QComboBox>(page, choice.name);
        fields->addWidget(FieldLabel(page, choice.label, list), row, 0);
        fields->addWidget(list, row++, 1);
    }
    for (const Field& person : kPeople) {
        auto* line = Named<QLineEdit>(page, person.name);
        fields->addWidget(FieldLabel(page, person.label, line), row, 0);
        fields->addWidget(line, row++, 1);
    }
    auto* ids = new QHBoxLayout;
    AddId(*ids, page, "ID", "txtID");
    AddId(*ids, page, "QB CTID", "txtQBID");
    AddId(*ids, page, "CTID", "txtCTID");
    auto* layout = PageLayout(page);
    layout->addLayout(fields);
    layout->addStretch();
    layout->addLayout(ids);
    return page;
}

QWidget* BuildTrackCommentPage(QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* table = RowTable(page, "grdComments", QObject::tr("Comments"));
    auto* comment = Named<QLineEdit>(page, "txtComment");
    auto* fields = FieldLayout();
    fields->addWidget(FieldLabel(page, "lblComment", comment), 0, 0);
    fields->addWidget(comment, 0, 1);
    auto* layout = PageLayout(page);
    layout->addWidget(table, 1);
    layout->addLayout(fields);
    layout->addLayout(ButtonRow(page, {"cmdCAdd", "cmdCDelete"}));
    return page;
}

}  // namespace

ChangeTrackWindow::ChangeTrackWindow(curation::FrmChgTrk& form, QWidget* parent)
    : FormDialog(form.form, parent), track_(form) {
    auto* tabs = Named<QTabBar>(this, "TabStrip1");
    tabs->setAccessibleName(tr("Change Track"));
    tabs->setDrawBase(false);
    tabs->setExpanding(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    AddPage(*layout, BuildTrackPage(this));
    AddPage(*layout, BuildTrackCommentPage(this));
    AddPage(*layout, BuildPublicationPage(this));
    AddPage(*layout, BuildExpertPage(this));
    AddPage(*layout, BuildOtherSourcePage(this));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(Named<QPushButton>(this, "cmdOK"));
    buttons->addWidget(Named<QPushButton>(this, "cmdCancel"));
    layout->addLayout(buttons);
    BindAll();
    track_.TabStrip1.Observe([guard = QPointer<ChangeTrackWindow>(this)] {
        if (guard) Guard([&] { guard->ShowPage(); });
    });
    ShowPage();
}

void ChangeTrackWindow::AddPage(QLayout& layout, QWidget* page) {
    MarkAsPage(*page);
    pages_.push_back(page);
    layout.addWidget(page);
}

void ChangeTrackWindow::ShowPage() {
    const auto shown = static_cast<std::size_t>(track_.TabStrip1.SelectedIndex() - 1);
    for (std::size_t page = 0; page < pages_.size(); ++page) pages_[page]->setVisible(page == shown);
}

}  // namespace quillon::ui
