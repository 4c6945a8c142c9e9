#include "ui/pages/synonym_page.h"

#include "ui/pages/page_parts.h"

namespace quillon::ui {

QWidget* BuildSynonymPage(QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* table = RowTable(page, "grdSynonyms", QObject::tr("Synonyms"));
    auto* heading = FieldLabel(page, "lblSynonyms", table);
    auto* rank = Named<QComboBox>(page, "cboSRank");
    auto* candidates = Named<QComboBox>(page, "cboSRName");
    auto* name = Named<QComboBox>(page, "cboSSciName");
    for (QComboBox* names : {candidates, name}) names->setMinimumContentsLength(30);
    auto* fields = FieldLayout();
    fields->addWidget(FieldLabel(page, "lblSRank", rank), 0, 0);
    fields->addWidget(rank, 0, 1, Qt::AlignLeft);
    fields->addWidget(FieldLabel(page, "lblSRName", candidates), 1, 0);
    fields->addWidget(candidates, 1, 1);
    fields->addWidget(FieldLabel(page, "lblSSciName", name), 2, 0);
    fields->addWidget(name, 2, 1);
    auto* layout = PageLayout(page);
    layout->addWidget(heading);
    layout->addWidget(table, 1);
    layout->addLayout(fields);
    layout->addLayout(ButtonRow(page, {"cmdSAdd", "cmdSDelete"}));
    return page;
}

}  // namespace quillon::ui
