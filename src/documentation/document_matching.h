// Finds a stored document by its content: two names that cite the same document share its row.
//
// The saving of a grid calls it for each row. It reads only the rows that an index leaves.
#pragma once

#include <optional>

#include "core/controls.h"
#include "core/value.h"
#include "documentation/document_description.h"
#include "store/engine.h"

namespace quillon::documentation {

// The ids of a stored document. That of the authority may be Null.
struct StoredDocument {
    int qbId = 0;
    Value id;
};

// The text of a field as the kind stores it: Null for an empty cell.
Value StoredText(const DocumentDescription& description, const GridControl::Row& cells, std::size_t field);

// The first document, by key, that has the content of a grid row, other than the document `except`.
// Throws StoreError.
std::optional<StoredDocument> FindDocument(store::Database& database, const DocumentDescription& description,
                                           const GridControl::Row& cells, int except = 0);

// The document with that id when it has exactly the content of a grid row; nothing otherwise. Throws
// StoreError.
std::optional<StoredDocument> FindSameDocument(store::Database& database,
                                               const DocumentDescription& description,
                                               const GridControl::Row& cells, int qbId);

}  // namespace quillon::documentation
