// The partial list: a text file of names, for another program or for the taxonomic compare. One header line,
// then one line for each taxon in the order of qb_id: its name and, depending on the type, its author and its
// rank.
#pragma once

#include <string_view>

#include "export/tagged_run.h"

namespace quillon::exporting {

enum class ListType {
    None,  // not chosen yet
    Name,
    NameAuthor,
    NameAuthorRank,
};

// Lists the taxa under `filter`, which must have been checked; gExportedCount counts the lines. gBatchCancel
// ends the list. Reports a missing type and writes an empty list. Throws StoreError.
void WriteNameList(ExportTools& tools, ListType type, std::string_view filter);

}  // namespace quillon::exporting
