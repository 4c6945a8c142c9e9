// The documents of one taxon and of its vernaculars, read as rows of the grid.
#pragma once

#include <string_view>
#include <vector>

#include "core/controls.h"
#include "documentation/document_description.h"
#include "store/engine.h"

namespace quillon::documentation {

// The rows of the taxon `qb_id`: those of its name first, then those of its vernaculars, each by the key of
// the document. `scientificName` goes into the first column of the former, "vernacular [language]" into that
// of the latter, where the language of a deleted vernacular is "unspecified". The errors of the store
// pass through.
std::vector<GridControl::Row> ReadDocumentRows(store::Database& database,
                                               const DocumentDescription& description, int qb_id,
                                               std::string_view scientificName);

}  // namespace quillon::documentation
