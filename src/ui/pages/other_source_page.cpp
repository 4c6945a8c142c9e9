#include "ui/pages/other_source_page.h"

#include "ui/pages/documentation_widgets.h"

namespace quillon::ui {

using namespace documentation_page;

namespace {

QGridLayout* Fields(QWidget* page) {
    const auto tr = [](const char* text) { return QCoreApplication::translate("OtherSourcePage", text); };
    auto* vernacular = VernacularPicker(page, "cboVernSrc");
    auto* fields = new QGridLayout;
    AddField(*fields, 0, 0, tr("So&urce"), PickList(page, "cboSource"), 5);
    AddField(*fields, 1, 0, tr("Source &Type"), Named<QLineEdit>(page, "txtSourceType"));
    AddField(*fields, 1, 2, tr("Vers&ion"), Named<QLineEdit>(page, "txtVersion"));
    AddField(*fields, 1, 4, tr("A&quisition Date"), Named<QLineEdit>(page, "txtADate"));
    AddField(*fields, 2, 0, tr("Comme&nts"), CommentBox(page, "txtOSComments"), 5);
    AddField(*fields, 3, 0, tr("Associated &With"), Named<QComboBox>(page, "cboVernSrcSelect"));
    fields->addWidget(FieldLabel(page, "lblVernSrcCbo", vernacular), 3, 2);
    fields->addWidget(vernacular, 3, 3, 1, 3);
    for (const int column : {1, 3, 5}) fields->setColumnStretch(column, 1);
    return fields;
}

}  // namespace

QWidget* BuildOtherSourcePage(QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* layout = PageLayout(page);
    layout->addWidget(
        RowTable(page, "grdOtherSources", QCoreApplication::translate("OtherSourcePage", "Other Sources"),
                 {30, 34, 12, 12, 13, 40, 8, 8, 8, 17, 8, 8}),
        1);
    layout->addLayout(Fields(page));
    layout->addLayout(Foot(page, {{"QB OSID", IdLine(page, "txtOSQBID")}, {"OSID", IdLine(page, "txtOSID")}},
                           {"cmdOSAdd", "cmdOSModify", "cmdOSDelete"}));
    SetTabOrder(*page,
                {"grdOtherSources", "cboSource", "txtSourceType", "txtVersion", "txtADate", "txtOSComments",
                 "cboVernSrcSelect", "cboVernSrc", "cmdOSAdd", "cmdOSModify", "cmdOSDelete"});
    return page;
}

}  // namespace quillon::ui
