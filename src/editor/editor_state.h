// What the editor remembers between commands beside CurrentTaxon and RecordDirty. RecView keeps one; its
// rules and those of the save read and write it.
#pragma once

#include <string>

namespace quillon::editor {

struct EditorState {
    std::string mode;          // "INPUT" or "EDIT"; "" without a DataSet
    std::string rankAsLoaded;  // the text of cboRank just after the load
    bool firstWarning = true;  // no save has been checked since the DataSet was opened
    bool dropInProgress = false;
    int FieldGroupEntered = 0;  // the group of the control that got the focus last, and of the one that lost
    int FieldGroupLeft = 0;     // it; 0 for none
};

}  // namespace quillon::editor
