// What a documentation tab stores in a save of its record.
#include "documentation/document_save.h"
#include "documentation/documentation_tab.h"
#include "records/links.h"

namespace quillon::documentation {

bool DocumentationTab::InsertAllRows(const records::RecordStore& records, int changeTrackId) {
    const ChangeScope scope(form_);
    pending_ = {};
    if (State().currentTaxon.qb_id == 0) return false;
    DocumentSave save(records, description_, State().currentTaxon, changeTrackId);
    for (int row = 0; grid.IsDataRow(row); ++row) {
        GridControl::Row cells = CellsOf(row);
        if (!save.Insert(cells)) return false;
        grid.ReplaceRow(static_cast<std::size_t>(row), std::move(cells));
        lastDocIds_ = {save.LastDocument().qbId, static_cast<int>(save.LastDocument().id.AsLong())};
    }
    return true;
}

// A failure ends nothing here: each link has been reported.
void DocumentationTab::RemovePending(const records::RecordStore& records) {
    const int qb_id = State().currentTaxon.qb_id;
    const std::string_view prefix = description_.kind.prefix;
    for (const int document : pending_.ofChangeTrack)
        records::DeleteReferenceLink(records, qb_id, document, prefix);
    for (const int document : pending_.ofName) records::DeleteReferenceLink(records, qb_id, document, prefix);
    for (const std::string& link : pending_.ofVernaculars)
        records::DeleteVernRefLink(records, qb_id, prefix, link);
}

bool DocumentationTab::SaveRows(const records::RecordStore& records, int changeTrackId) {
    DocumentSave save(records, description_, State().currentTaxon, changeTrackId);
    for (int row = 0; grid.IsDataRow(row); ++row) {
        GridControl::Row cells = CellsOf(row);
        if (!save.Change(cells)) return false;
        grid.ReplaceRow(static_cast<std::size_t>(row), std::move(cells));
        lastDocIds_ = {save.LastDocument().qbId, static_cast<int>(save.LastDocument().id.AsLong())};
    }
    return true;
}

// After an error of the whole file nothing is stored: what is pending stays so for the next save.
bool DocumentationTab::SaveGrid(const records::RecordStore& records, int changeTrackId) {
    const ChangeScope scope(form_);
    RemovePending(records);
    const bool saved = SaveRows(records, changeTrackId);
    pending_ = {};
    return saved;
}

}  // namespace quillon::documentation
