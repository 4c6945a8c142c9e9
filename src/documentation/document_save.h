// Stores the rows of one documentation grid: the documents, which names share, and the links to them.
//
// DocumentationTab makes one for each save, inside the command of that save. Each statement is a unit of its
// own. A failure is reported, and the row goes as far as it can without it.
#pragma once

#include "documentation/document_links.h"
#include "documentation/document_matching.h"

namespace quillon::documentation {

class DocumentSave {
public:
    // All arguments outlive the object. Links of names refer to the change track; 0 for none.
    DocumentSave(const records::RecordStore& records, const DocumentDescription& description,
                 const CurrentTaxon& taxon, int changeTrackId);

    // Stores a row of a new record. A document with the content of the row is shared: the one whose id the
    // row has, or the first of them. Puts the ids in the row. False when the row could not be stored.
    bool Insert(GridControl::Row& cells);
    // Stores a row of a record that was loaded, with its changes. False when the save must end.
    bool Change(GridControl::Row& cells);

    // Of the last document that Insert stored or found.
    const StoredDocument& LastDocument() const { return last_; }

private:
    bool InsertNew(GridControl::Row& cells);
    StoredDocument Store(const GridControl::Row& cells) const;
    bool HasDuplicate(const GridControl::Row& cells) const;
    bool Update(const GridControl::Row& cells) const;
    void SetFields(store::Recordset& document, const GridControl::Row& cells, bool clears) const;
    int QbIdOf(const GridControl::Row& cells) const;

    const records::RecordStore& records_;
    const DocumentDescription& description_;
    const DocumentColumns columns_;
    const DocumentLinks links_;
    StoredDocument last_;
};

}  // namespace quillon::documentation
