// The controls of the main window RecView: menu commands, toolbar buttons, status panels, and the eight tabs
// of the record. The logic is in rec_view.h and in the tabs; the window is in src/ui.
//
// A menu item and the toolbar button of the same command are one control. Commands that do not exist yet are
// disabled.
#pragma once

#include <array>
#include <string_view>

#include "core/controls.h"
#include "documentation/documentation_tab.h"
#include "editor/comment_tab.h"
#include "editor/distribution_tab.h"
#include "editor/synonym_tab.h"
#include "editor/taxon_tab.h"
#include "editor/vernacular_tab.h"

namespace quillon::editor {

struct RecViewForm {
    Form form{"RecView"};

    ButtonControl mnuFNew{form, "mnuFNew", "&New DataSet"};
    ButtonControl mnuFOpen{form, "mnuFOpen", "&Open DataSet..."};
    ButtonControl mnuFSaveAs{form, "mnuFSaveAs", "Save &As..."};
    ButtonControl mnuSave{form, "mnuSave", "Save Record"};
    ButtonControl mnuFImport{form, "mnuFImport", "&Import..."};
    ButtonControl mnuFValidate{form, "mnuFValidate", "&Validate"};
    ButtonControl mnuFExport{form, "mnuFExport", "&Export..."};
    ButtonControl mnuFPreferences{form, "mnuFPreferences", "P&references"};
    ButtonControl mnuFReports{form, "mnuFReports", "&Reports"};
    ButtonControl mnuTaxonomy{form, "mnuTaxonomy", "&Taxonomy"};
    ButtonControl mnuFullRecord{form, "mnuFullRecord", "&Full Record"};
    ButtonControl mnuFQuit{form, "mnuFQuit", "&Quit"};

    ButtonControl mnuECut{form, "mnuECut", "Cu&t Name"};
    ButtonControl mnuCopy{form, "mnuCopy", "&Copy Name"};
    ButtonControl mnuPaste{form, "mnuPaste", "Pas&te Name"};
    ButtonControl mnuEUndo{form, "mnuEUndo", "&Undo"};
    ButtonControl mnuEDelete{form, "mnuEDelete", "Delete Name"};
    ButtonControl mnuAuth{form, "mnuAuth", "&Author Edit"};
    ButtonControl mnuMerge{form, "mnuMerge", "&Merge"};
    ButtonControl mnuSplit{form, "mnuSplit", "&Split"};

    ButtonControl mnuParent{form, "mnuParent", "Go To &Parent"};
    ButtonControl mnuFirst{form, "mnuFirst", "Go To First Name"};
    ButtonControl mnuPrev{form, "mnuPrev", "Go To Previous Name"};
    ButtonControl mnuNext{form, "mnuNext", "Go To Next Name"};
    ButtonControl mnuLast{form, "mnuLast", "Go To Last Name"};
    ButtonControl mnuRankFirst{form, "mnuRankFirst", "First of the Same Rank"};
    ButtonControl mnuRankPrev{form, "mnuRankPrev", "Previous of the Same Rank"};
    ButtonControl mnuRankNext{form, "mnuRankNext", "Next of the Same Rank"};
    ButtonControl mnuRankLast{form, "mnuRankLast", "Last of the Same Rank"};
    ButtonControl mnuAdd{form, "mnuAdd", "Add New Name"};

    ButtonControl mnuHContents{form, "mnuHContents", "&Contents"};
    ButtonControl mnuHSearch{form, "mnuHSearch", "&Search For Help On..."};
    ButtonControl mnuHAbout{form, "mnuHAbout", "&About Taxonomic Quillon"};

    // The toolbar TBarNavigate: which of the two views the explorer shows.
    OptionControl hierarchy{form, "hierarchy", "TBarNavigate", "Hierarchy"};
    OptionControl alpha{form, "alpha", "TBarNavigate", "Alphabetical List"};

    LabelControl name{form, "name"};
    LabelControl taxa{form, "taxa"};
    LabelControl mode{form, "mode"};

    ButtonControl cmdOK{form, "cmdOK", "&Save"};

    TabStripControl TabStrip1{form,
                              "TabStrip1",
                              {{"taxon", "Taxon"},
                               {"vernacular", "Vernaculars"},
                               {"synonyms", "Synonyms"},
                               {"distribution", "Distribution"},
                               {"comments", "Comments"},
                               {"publications", "Publications"},
                               {"experts", "Experts"},
                               {"othersources", "Other Sources"}}};
    TaxonTab taxon{form};
    VernacularTab vernaculars{form};
    SynonymTab synonyms{form};
    DistributionTab distribution{form};
    CommentTab comments{form};
    documentation::DocumentationTab publications{form, documentation::Publications()};
    documentation::DocumentationTab experts{form, documentation::Experts()};
    documentation::DocumentationTab otherSources{form, documentation::OtherSources()};

    RecViewForm();

    // In the order of TabStrip1.
    std::array<RecordTab*, 8> Tabs();
    // The position in TabStrip1 of the control's tab, from 1; 0 for a control outside the tabs.
    int TabOf(const Control& control);
    // The name of the taxon under edit, from its record or from the fields.
    std::string CurrentTaxonName() const { return taxon.CurrentTaxonName(); }

    // The command of a toolbar key; nullptr when there is none.
    ButtonControl* OfKey(std::string_view key);
};

}  // namespace quillon::editor
