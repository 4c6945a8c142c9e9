#include "editor/rec_view_form.h"

namespace quillon::editor {

RecViewForm::RecViewForm() {
    for (ButtonControl* later :
         {&mnuSave,     &mnuFValidate, &mnuFExport, &mnuFPreferences, &mnuTaxonomy, &mnuFullRecord,
          &mnuFReports, &mnuECut,      &mnuCopy,    &mnuPaste,        &mnuEUndo,    &mnuEDelete,
          &mnuAuth,     &mnuMerge,     &mnuSplit,   &mnuParent,       &mnuFirst,    &mnuPrev,
          &mnuNext,     &mnuLast,      &mnuAdd,     &mnuHContents,    &mnuHSearch,  &cmdOK}) {
        later->SetEnabled(false);
    }
    for (TextControl* field : {&txtSciName, &txtRank, &txtAuthor, &txtUsage, &txtParent})
        field->SetLocked(true);
    hierarchy.SetValue(true);
}

FrmAbout::FrmAbout(std::string_view version) {
    form.SetTitle("About Taxonomic Quillon");
    lblVersion.SetCaption("Taxonomic Quillon Version " + std::string(version) + " (SR6)");
    cmdOK.OnClick([this] { form.Close(); });
}

}  // namespace quillon::editor
