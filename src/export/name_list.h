// The partial list: a text file of names, for another program or for the taxonomic compare. One header line,
// then a line a taxon in the order of qb_id: its name, and by the type its author and its rank.
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

// The taxa are those under `filter`, which has been checked; each line counts in gExportedCount. gBatchCancel
// ends the list. A type that was not chosen is reported, and the list is empty. Throws StoreError.
void WriteNameList(ExportTools& tools, ListType type, std::string_view filter);

}  // namespace quillon::exporting
