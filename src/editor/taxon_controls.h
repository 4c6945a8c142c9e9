// The controls of the first tab: a taxon's name, rank, usage, ratings, parent and authors.
//
// TaxonTab and every other form that shows a taxon's name have them. There is no logic here: taxon_fields.h
// decides what a rank shows, taxon_lists.h what the lists offer.
#pragma once

#include "core/controls.h"
#include "core/signal.h"
#include "documentation/pick_list.h"

namespace quillon::editor {

struct TaxonControls {
    // `owner` is the form that the controls belong to; it must outlive them.
    explicit TaxonControls(Form& owner);

    Form& form;
    // The form that has these controls shows them, when they are on one of its tabs.
    Signal<> BringUp;

    LabelControl lblKingdom{form, "lblKingdom", "Kingdom"};
    TextControl txtKingdom{form, "txtKingdom"};
    LabelControl lblTSN{form, "lblTSN", "TSN"};
    TextControl txtTSN{form, "txtTSN"};
    LabelControl lblRank{form, "lblRank", "Ran&k"};
    ComboControl cboRank{form, "cboRank", ComboControl::Style::ListOnly};

    // The units of the name. Only one of cboName1 and txtName1 is visible at a time, and only one of cboName2
    // and txtName2.
    LabelControl lblName1{form, "lblName1"}, lblName2{form, "lblName2"}, lblName3{form, "lblName3"},
        lblName4{form, "lblName4"};
    ComboControl cboName1{form, "cboName1", ComboControl::Style::Editable, 35},
        cboName2{form, "cboName2", ComboControl::Style::Editable, 35};
    TextControl txtName1{form, "txtName1", 35}, txtName2{form, "txtName2", 35},
        txtName3{form, "txtName3", 35}, txtName4{form, "txtName4", 35};
    // The rank of the third unit of a quadrinomial, in the words of GetRankFromIndicator or of the list.
    ComboControl cboName3Rank{form, "cboName3Rank"};
    ButtonControl cmdParen{form, "cmdParen", "( )"};
    LabelControl lblHybrid{form, "lblHybrid", "Hybrid"};
    CheckControl chkHybrid1{form, "chkHybrid1", "X"}, chkHybrid2{form, "chkHybrid2", "X"},
        chkHybrid3{form, "chkHybrid3", "Formula"};
    CheckControl chkQuad{form, "chkQuad", "&Quadrinomial"};
    LabelControl lblUnnamed{form, "lblUnnamed", "&Unnamed Taxon"};
    CheckControl chkUnnamed{form, "chkUnnamed"};

    LabelControl fraUsage{form, "fraUsage", "Valid Name"};
    OptionControl optValid{form, "optValid", "fraUsage", "Valid"};
    OptionControl optInvalid{form, "optInvalid", "fraUsage", "Invalid"};
    LabelControl lblInvalidReason{form, "lblInvalidReason", "Reas&on"};
    ComboControl cboInvalidReason{form, "cboInvalidReason", ComboControl::Style::Editable, 50};

    LabelControl lblCredible{form, "lblCredible", "Cre&dibility"};
    ComboControl cboCredibility{form, "cboCredibility", ComboControl::Style::Editable, 40};
    LabelControl lblComplete{form, "lblComplete", "Comp&leteness"};
    ComboControl cboCoverage{form, "cboCoverage", ComboControl::Style::Editable, 10};
    LabelControl lblCurrency{form, "lblCurrency", "Currenc&y"};
    TextControl txtCurrency{form, "txtCurrency", 7};

    LabelControl lblDPRank{form, "lblDPRank", "&Parent Rank"};
    // Picking the selected rank again reloads the parents.
    documentation::PickListControl cboDPRank{form, "cboDPRank", ComboControl::Style::ListOnly};
    LabelControl lblParentName{form, "lblParentName", "Parent &Name"};
    // The item data of a choice is the qb_id of the parent.
    ComboControl cboParentName{form, "cboParentName"};
    CheckControl chkParentUn{form, "chkParentUn", "Uncertain"};

    LabelControl lblAuth{form, "lblAuth", "&Author"};
    ComboControl cboAuth{form, "cboAuth", ComboControl::Style::Editable, 100};
    LabelControl lblHybridAuthority{form, "lblHybridAuthority"};
    ComboControl cboAuth2{form, "cboAuth2", ComboControl::Style::Editable, 100};

    // Sets all texts to "" and all boxes and options to off. Keeps the lists.
    void ClearFields();
};

}  // namespace quillon::editor
