// Updates the tree and the list after a record was saved or deleted.
#include "navigation/explorer.h"

namespace quillon::navigation {

void cExplorer::RecordAdded(int qb_id) {
    list_.Update(qb_id);
}

void cExplorer::RecordChanged(int qb_id) {
    RefreshName(qb_id);
    ReflectRealNodePosition(qb_id);
    list_.Update(qb_id);
}

void cExplorer::RecordRemoved(int qb_id) {
    RemoveNodes(qb_id);
    list_.Update(qb_id);
}

}  // namespace quillon::navigation
