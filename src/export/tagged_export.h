// WriteTaggedFile: the selected rows of a DataSet as the lines of a tagged file. The export job calls it with
// a file open and, for the online system, after a validation. Its only write on the DataSet fills in missing
// parent_tsn.
#pragma once

#include <stdexcept>
#include <string>

#include "export/tagged_run.h"

namespace quillon::exporting {

// Why an export ends, as a text for the user.
class ExportError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Writes the sections under gRecordFilter, which has been checked, and leaves out what gRejectedTaxa and
// gRejectedDocs refuse. gBatchCancel ends it at the next row. gExportedCount counts the lines; the result is
// the number of taxa among them. Unless gValidatingForExport is set the totals are counted here. Throws
// StoreError and ExportError.
int WriteTaggedFile(ExportTools& tools);

}  // namespace quillon::exporting
