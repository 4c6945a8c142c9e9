#include "ui/pages/expert_page.h"

#include "ui/pages/documentation_widgets.h"

namespace quillon::ui {

using namespace documentation_page;

namespace {

QGridLayout* Fields(QWidget* page) {
    const auto tr = [](const char* text) { return QCoreApplication::translate("ExpertPage", text); };
    auto* vernacular = VernacularPicker(page, "cboVernExp");
    auto* fields = new QGridLayout;
    AddField(*fields, 0, 0, tr("E&xpert"), PickList(page, "cboExpert"), 3);
    AddField(*fields, 1, 0, tr("Comme&nts"), CommentBox(page, "txtExpComments"), 3);
    AddField(*fields, 2, 0, tr("Associated &With"), Named<QComboBox>(page, "cboVernExpSelect"));
    fields->addWidget(FieldLabel(page, "lblVernExpCbo", vernacular), 2, 2);
    fields->addWidget(vernacular, 2, 3);
    fields->setColumnStretch(1, 2);
    fields->setColumnStretch(3, 3);
    return fields;
}

}  // namespace

QWidget* BuildExpertPage(QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* layout = PageLayout(page);
    layout->addWidget(RowTable(page, "grdExperts", QCoreApplication::translate("ExpertPage", "Experts"),
                               {30, 30, 50, 8, 8, 8, 20, 8, 8}),
                      1);
    layout->addLayout(Fields(page));
    layout->addLayout(Foot(page, {{"QB EID", IdLine(page, "txtEQBID")}, {"EID", IdLine(page, "txtEID")}},
                           {"cmdExpAdd", "cmdExpModify", "cmdExpDelete"}));
    SetTabOrder(*page, {"grdExperts", "cboExpert", "txtExpComments", "cboVernExpSelect", "cboVernExp",
                        "cmdExpAdd", "cmdExpModify", "cmdExpDelete"});
    return page;
}

}  // namespace quillon::ui
