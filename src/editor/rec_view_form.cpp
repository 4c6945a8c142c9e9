#include "editor/rec_view_form.h"

#include <array>

namespace quillon::editor {

namespace {

struct KeyedButton {
    std::string_view key;
    ButtonControl RecViewForm::*button;
};
constexpr std::array<KeyedButton, 15> kKeys = {{
    {"open", &RecViewForm::mnuFOpen},
    {"new", &RecViewForm::mnuFNew},
    {"save", &RecViewForm::mnuSave},
    {"delete", &RecViewForm::mnuEDelete},
    {"cut", &RecViewForm::mnuECut},
    {"copy", &RecViewForm::mnuCopy},
    {"paste", &RecViewForm::mnuPaste},
    {"undo", &RecViewForm::mnuEUndo},
    {"moveparent", &RecViewForm::mnuParent},
    {"movefirst", &RecViewForm::mnuFirst},
    {"moveprev", &RecViewForm::mnuPrev},
    {"movenext", &RecViewForm::mnuNext},
    {"movelast", &RecViewForm::mnuLast},
    {"addnew", &RecViewForm::mnuAdd},
    {"help", &RecViewForm::mnuHSearch},
}};

}  // namespace

RecViewForm::RecViewForm() {
    for (ButtonControl* later : {&mnuSave, &mnuTaxonomy, &mnuFullRecord, &mnuFReports, &mnuEDelete, &mnuAuth,
                                 &mnuMerge, &mnuSplit, &cmdOK}) {
        later->SetEnabled(false);
    }
    RVPanel4.SetEnabled(false);
    hierarchy.SetValue(true);
}

ButtonControl* RecViewForm::OfKey(std::string_view key) {
    for (const KeyedButton& keyed : kKeys)
        if (keyed.key == key) return &(this->*keyed.button);
    return nullptr;
}

std::vector<Control*> RecViewForm::Tracked() {
    std::vector<Control*> tracked = {
        &publications.cboADate, &taxon.cboAuth,          &taxon.cboAuth2,        &publications.cboAuthor,
        &taxon.cboCoverage,     &taxon.cboCredibility,   &taxon.cboDPRank,       &taxon.cboInvalidReason,
        &taxon.cboName1,        &taxon.cboName2,         &taxon.cboParentName,   &publications.cboPublication,
        &taxon.cboRank,         &otherSources.cboSource, &publications.cboTitle, &taxon.chkHybrid1,
        &taxon.chkHybrid2,      &taxon.chkHybrid3,       &taxon.chkQuad,         &taxon.chkUnnamed,
        &taxon.txtCurrency,     &taxon.txtName1,         &taxon.txtName2,        &taxon.txtName3,
        &taxon.txtName4,        &taxon.optValid,         &taxon.optInvalid};
    for (CheckControl* region : distribution.Regions()) tracked.push_back(region);
    return tracked;
}

FrmAbout::FrmAbout(std::string_view version) {
    form.SetTitle("About Taxonomic Quillon");
    lblVersion.SetCaption("Taxonomic Quillon Version " + std::string(version) + " (SR6)");
    cmdOK.OnClick([this] { form.Close(); });
}

}  // namespace quillon::editor
