// What the editor remembers between commands besides CurrentTaxon and RecordDirty. RecView keeps one; the
// procedures that save a record will read and write it.
#pragma once

#include "core/record_tab.h"

namespace quillon::editor {

struct EditorState {
    EditorMode mode = EditorMode::None;
    bool firstWarning = true;     // no save has been checked since the DataSet was opened
    bool dropInProgress = false;  // a move in the tree that the save will store
    // The group of the control that got the focus last, and of the one that lost it; 0 for none.
    int FieldGroupEntered = 0;
    int FieldGroupLeft = 0;
};

}  // namespace quillon::editor
