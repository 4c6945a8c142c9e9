// Writes the selected rows of a DataSet as the lines of a tagged file. The export job calls it with an open
// file and, for the online system, after a validation. It writes nothing to the DataSet except missing
// parent_tsn.
#pragma once

#include <stdexcept>
#include <string>

#include "export/tagged_run.h"

namespace quillon::exporting {

// The reason why an export fails, as a text for the user.
class ExportError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Writes the sections under gRecordFilter, which must have been checked, without the records in gRejectedTaxa
// and gRejectedDocs. gBatchCancel ends it at the next row. gExportedCount counts the lines; the result is the
// number of taxa. Unless gValidatingForExport is set, counts the totals first. Throws StoreError and
// ExportError.
int WriteTaggedFile(ExportTools& tools);

}  // namespace quillon::exporting
