// The controls of the main window RecView, named as the system names them: menu commands, toolbar buttons,
// status panels, tabs and the fields of the taxon tab. The rules are in rec_view.h; the window in src/ui.
//
// A menu item and the toolbar button of the same command are one control. Commands that are not there yet are
// disabled.
#pragma once

#include "core/controls.h"

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
    // The panel of the tab "distribution", the fourth of the array RVPanel.
    LabelControl RVPanel4{form, "RVPanel4"};

    // The taxon tab, for reading.
    TextControl txtSciName{form, "txtSciName"};
    TextControl txtRank{form, "txtRank"};
    TextControl txtAuthor{form, "txtAuthor"};
    TextControl txtUsage{form, "txtUsage"};
    TextControl txtParent{form, "txtParent"};
    LabelControl lblSciName{form, "lblSciName", "&Name"};
    LabelControl lblRank{form, "lblRank", "Rank"};
    LabelControl lblAuthor{form, "lblAuthor", "Author"};
    LabelControl lblUsage{form, "lblUsage", "Usage"};
    LabelControl lblParent{form, "lblParent", "Parent"};

    RecViewForm();
};

// The box of Help, About.
struct FrmAbout {
    Form form{"FrmAbout"};
    LabelControl lblTitle{form, "lblTitle", "Orvaline"};
    LabelControl lblVersion{form, "lblVersion"};
    LabelControl lblBuild{form, "lblBuild"};
    ButtonControl cmdOK{form, "cmdOK", "OK"};

    // `version` is major.minor.revision.
    explicit FrmAbout(std::string_view version);
};

}  // namespace quillon::editor
