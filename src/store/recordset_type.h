// How the rows of a recordset can be visited and written.
#pragma once

namespace quillon::store {

enum class RecordsetType {
    Table,        // a whole table in the order of an index; Seek
    Dynaset,      // updatable when all columns come from one table
    Snapshot,     // read only
    ForwardOnly,  // read only, only MoveNext, keeps no visited rows: for many rows
};

}  // namespace quillon::store
