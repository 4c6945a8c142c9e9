// A statement for each table that lines of a tagged file are stored in. The columns are those of the record,
// in the order of the line; a handler passes the values in that order.
#pragma once

#include "store/bulk.h"
#include "store/engine.h"

namespace quillon::importing {

struct RecordWriters {
    explicit RecordWriters(store::Database& database);

    store::RowWriter taxa;  // without the authority's id of the author, which is stored in the author's row
    store::RowWriter authors, nodcIds;
    store::RowWriter vernaculars;  // then hex_vernacular_name
    store::RowWriter synonyms, divisions, jurisdictions;
    store::RowWriter references;  // without vernacular_name: links of vernaculars are stored in another table
    store::RowWriter vernReferences, publications, experts, otherSources, comments, commentLinks;
    store::RowWriter changeTracks, changeOperations;
    store::RowWriter changeComments;  // then qb_chg_cmt_id
};

}  // namespace quillon::importing
