// The three documentation tabs with their controls under the names that the windows know them by.
#pragma once

#include "documentation/documentation_tab.h"

namespace quillon::documentation {

struct PublicationTab : DocumentationTab {
    explicit PublicationTab(Form& form, FormPurpose purpose = FormPurpose::Record)
        : DocumentationTab(form, Publications(), purpose) {}

    EntryGridControl& grdPublications = grid;
    PickListControl &cboAuthor = *PickList(0), &cboADate = *PickList(2), &cboTitle = *PickList(3),
                    &cboPublication = *PickList(4);
    CheckControl& chkPOD = dynamic_cast<CheckControl&>(Field(1));
    TextControl &txtLDate = Text(5), &txtPublisher = Text(6), &txtLocation = Text(7), &txtISBN = Text(8),
                &txtISSN = Text(9), &txtPages = Text(10), &txtPubComments = Text(11);
    ComboControl &cboVernPubSelect = association.words, &cboVernPub = association.picker;
    LabelControl& lblVernPubCbo = association.label;
    TextControl &txtPQBID = qbId, &txtPID = id;

private:
    TextControl& Text(std::size_t field) { return dynamic_cast<TextControl&>(Field(field)); }
};

struct ExpertTab : DocumentationTab {
    explicit ExpertTab(Form& form, FormPurpose purpose = FormPurpose::Record)
        : DocumentationTab(form, Experts(), purpose) {}

    EntryGridControl& grdExperts = grid;
    PickListControl& cboExpert = *PickList(0);
    TextControl& txtExpComments = dynamic_cast<TextControl&>(Field(1));
    ComboControl &cboVernExpSelect = association.words, &cboVernExp = association.picker;
    LabelControl& lblVernExpCbo = association.label;
    TextControl &txtEQBID = qbId, &txtEID = id;
};

struct OtherSourceTab : DocumentationTab {
    explicit OtherSourceTab(Form& form, FormPurpose purpose = FormPurpose::Record)
        : DocumentationTab(form, OtherSources(), purpose) {}

    EntryGridControl& grdOtherSources = grid;
    PickListControl& cboSource = *PickList(0);
    TextControl &txtSourceType = Text(1), &txtVersion = Text(2), &txtADate = Text(3),
                &txtOSComments = Text(4);
    ComboControl &cboVernSrcSelect = association.words, &cboVernSrc = association.picker;
    LabelControl& lblVernSrcCbo = association.label;
    TextControl &txtOSQBID = qbId, &txtOSID = id;

private:
    TextControl& Text(std::size_t field) { return dynamic_cast<TextControl&>(Field(field)); }
};

}  // namespace quillon::documentation
