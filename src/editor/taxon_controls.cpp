#include "editor/taxon_controls.h"

#include <initializer_list>

namespace quillon::editor {

TaxonControls::TaxonControls(Form& owner) : form(owner) {
    txtKingdom.SetLocked(true);
    txtTSN.SetLocked(true);
    lblUnnamed.SetVisible(false);
    chkUnnamed.SetVisible(false);
}

void TaxonControls::ClearFields() {
    ChangeScope scope(form);
    for (TextControl* text :
         {&txtKingdom, &txtTSN, &txtName1, &txtName2, &txtName3, &txtName4, &txtCurrency}) {
        text->SetText("");
    }
    for (ComboControl* combo : std::initializer_list<ComboControl*>{
             &cboRank, &cboName1, &cboName2, &cboName3Rank, &cboInvalidReason, &cboCredibility, &cboCoverage,
             &cboDPRank, &cboParentName, &cboAuth, &cboAuth2}) {
        combo->SetText("");
    }
    for (CheckControl* check : {&chkHybrid1, &chkHybrid2, &chkHybrid3, &chkQuad, &chkUnnamed, &chkParentUn}) {
        check->SetValue(false);
    }
    optValid.SetValue(false);
    optInvalid.SetValue(false);
}

}  // namespace quillon::editor
