// The documents of one taxon and of its vernaculars, read as rows of the grid.
#pragma once

#include <string_view>
#include <vector>

#include "core/controls.h"
#include "documentation/document_description.h"
#include "store/engine.h"

namespace quillon::documentation {

// The rows of the taxon `qb_id`, by the key of the document: for each, that of the name first, then those of
// the vernaculars. The first column shows `scientificName` or "vernacular [language]"; the language of a
// deleted vernacular is "unspecified". Throws StoreError.
std::vector<GridControl::Row> ReadDocumentRows(store::Database& database,
                                               const DocumentDescription& description, int qb_id,
                                               std::string_view scientificName);

}  // namespace quillon::documentation
