// The partial list: a text file of names, for another program or for the taxonomic compare. One header line,
// then a line a taxon in the order of qb_id: its name, and by the type its author and its rank.
#pragma once

#include "export/tagged_run.h"

namespace quillon::exporting {

enum class ListType { Name = 1, NameAuthor = 2, NameAuthorRank = 3 };

// `type` 1, 2 or 3; any other is told, and nothing is written. The taxa are those under gRecordFilter, which
// has been checked; each line counts in gExportedCount. gBatchCancel ends the list. Throws StoreError.
void WriteNameList(ExportTools& tools, int type);

}  // namespace quillon::exporting
