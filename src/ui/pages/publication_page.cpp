#include "ui/pages/publication_page.h"

#include "ui/pages/documentation_widgets.h"

namespace quillon::ui {

using namespace documentation_page;

namespace {

QGridLayout* Fields(QWidget* page) {
    const auto tr = [](const char* text) { return QCoreApplication::translate("PublicationPage", text); };
    auto* vernacular = VernacularPicker(page, "cboVernPub");
    auto* fields = new QGridLayout;
    AddField(*fields, 0, 0, tr("A&uthor"), PickList(page, "cboAuthor"));
    AddField(*fields, 0, 2, tr("A&ctual Date"), PickList(page, "cboADate"));
    AddField(*fields, 0, 4, tr("&Listed Date"), Named<QLineEdit>(page, "txtLDate"));
    AddField(*fields, 1, 0, tr("&Title"), PickList(page, "cboTitle"), 5);
    AddField(*fields, 2, 0, tr("&Publication"), PickList(page, "cboPublication"), 5);
    AddField(*fields, 3, 0, tr("Pu&blisher"), Named<QLineEdit>(page, "txtPublisher"));
    AddField(*fields, 3, 2, tr("L&ocation"), Named<QLineEdit>(page, "txtLocation"), 3);
    AddField(*fields, 4, 0, tr("&ISBN"), Named<QLineEdit>(page, "txtISBN"));
    AddField(*fields, 4, 2, tr("ISSN"), Named<QLineEdit>(page, "txtISSN"));
    AddField(*fields, 4, 4, tr("Pages"), Named<QLineEdit>(page, "txtPages"));
    AddField(*fields, 5, 0, tr("Comme&nts"), CommentBox(page, "txtPubComments"), 5);
    fields->addWidget(Named<QCheckBox>(page, "chkPOD"), 6, 1);
    AddField(*fields, 7, 0, tr("Associated &With"), Named<QComboBox>(page, "cboVernPubSelect"));
    fields->addWidget(FieldLabel(page, "lblVernPubCbo", vernacular), 7, 2);
    fields->addWidget(vernacular, 7, 3, 1, 3);
    fields->setColumnStretch(1, 3);
    fields->setColumnStretch(3, 2);
    fields->setColumnStretch(5, 2);
    return fields;
}

}  // namespace

QWidget* BuildPublicationPage(QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* layout = PageLayout(page);
    layout->addWidget(
        RowTable(page, "grdPublications", QCoreApplication::translate("PublicationPage", "Publications"),
                 {24, 22, 12, 13, 30, 30, 12, 18, 14, 14, 14, 10, 30, 8, 8, 8, 17, 8, 8}),
        1);
    layout->addLayout(Fields(page));
    layout->addLayout(Foot(page, {{"QB PID", IdLine(page, "txtPQBID")}, {"PID", IdLine(page, "txtPID")}},
                           {"cmdPubAdd", "cmdPubModify", "cmdPubDelete"}));
    SetTabOrder(*page,
                {"grdPublications", "cboAuthor", "cboADate", "txtLDate", "cboTitle", "cboPublication",
                 "txtPublisher", "txtLocation", "txtISBN", "txtISSN", "txtPages", "txtPubComments", "chkPOD",
                 "cboVernPubSelect", "cboVernPub", "cmdPubAdd", "cmdPubModify", "cmdPubDelete"});
    return page;
}

}  // namespace quillon::ui
