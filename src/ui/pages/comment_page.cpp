#include "ui/pages/comment_page.h"

#include "ui/pages/page_parts.h"

namespace quillon::ui {

namespace {

constexpr int kCommentLines = 6;

}  // namespace

QWidget* BuildCommentPage(QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* table = RowTable(page, "grdComments", QObject::tr("Comments"));
    auto* commentator = Named<QLineEdit>(page, "txtCommentator");
    auto* comment = TextBox(page, "txtComment");
    comment->setMinimumHeight(HeightOf(*comment, kCommentLines));
    auto* fields = FieldLayout();
    fields->addWidget(FieldLabel(page, "lblCommentator", commentator), 0, 0);
    fields->addWidget(commentator, 0, 1);
    fields->addWidget(FieldLabel(page, "lblComment", comment), 1, 0, Qt::AlignTop);
    fields->addWidget(comment, 1, 1);
    auto* layout = PageLayout(page);
    layout->addWidget(table, 2);
    layout->addLayout(fields, 1);
    layout->addLayout(ButtonRow(page, {"cmdCAdd", "cmdCDelete"}));
    return page;
}

}  // namespace quillon::ui
