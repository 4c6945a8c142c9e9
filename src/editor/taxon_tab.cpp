#include "editor/taxon_tab.h"

#include <initializer_list>

namespace quillon::editor {

TaxonTab::TaxonTab(Form& owner) : form(owner) {
    txtKingdom.SetLocked(true);
    txtTSN.SetLocked(true);
    lblUnnamed.SetVisible(false);
    chkUnnamed.SetVisible(false);
}

void ClearTaxonTab(TaxonTab& tab) {
    ChangeScope scope(tab.form);
    for (TextControl* text : {&tab.txtKingdom, &tab.txtTSN, &tab.txtName1, &tab.txtName2, &tab.txtName3,
                              &tab.txtName4, &tab.txtCurrency}) {
        text->SetText("");
    }
    for (ComboControl* combo : std::initializer_list<ComboControl*>{
             &tab.cboRank, &tab.cboName1, &tab.cboName2, &tab.cboName3Rank, &tab.cboInvalidReason,
             &tab.cboCredibility, &tab.cboCoverage, &tab.cboDPRank, &tab.cboParentName, &tab.cboAuth,
             &tab.cboAuth2}) {
        combo->SetText("");
    }
    for (CheckControl* check : {&tab.chkHybrid1, &tab.chkHybrid2, &tab.chkHybrid3, &tab.chkQuad,
                                &tab.chkUnnamed, &tab.chkParentUn}) {
        check->SetValue(false);
    }
    tab.optValid.SetValue(false);
    tab.optInvalid.SetValue(false);
}

}  // namespace quillon::editor
