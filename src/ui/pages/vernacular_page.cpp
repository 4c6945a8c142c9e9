#include "ui/pages/vernacular_page.h"

#include "ui/pages/page_parts.h"

namespace quillon::ui {

QWidget* BuildVernacularPage(QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* table = RowTable(page, "grdVernacular", QObject::tr("Vernaculars"));
    auto* name = Named<QLineEdit>(page, "txtVName");
    auto* language = Named<QComboBox>(page, "cboLanguage");
    language->setMinimumContentsLength(16);
    auto* fields = FieldLayout();
    fields->addWidget(FieldLabel(page, "lblVName", name), 0, 0);
    fields->addWidget(name, 0, 1, 1, 2);
    fields->addWidget(FieldLabel(page, "lblLanguage", language), 1, 0);
    fields->addWidget(language, 1, 1);
    fields->addWidget(Named<QCheckBox>(page, "chkApproved"), 1, 2);
    auto* layout = PageLayout(page);
    layout->addWidget(table, 1);
    layout->addLayout(fields);
    layout->addLayout(ButtonRow(page, {"cmdVAdd", "cmdVModify", "cmdVDelete"}));
    return page;
}

}  // namespace quillon::ui
