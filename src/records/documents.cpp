#include "records/documents.h"

#include <fmt/format.h>

#include <string>

#include "records/tombstones.h"

namespace quillon::records {

namespace {

// Reads the external key of a row: the id is the last column. A row without such an id leaves no tombstone.
void WriteDocumentTombstone(const RecordStore& records, const std::string& readKey,
                            std::string_view table_name) {
    const auto row = records.database.CreateSnapshot(readKey);
    if (row->Eof()) return;
    const std::size_t last = row->ColumnCount() - 1;
    const Value externalId = row->At(last);
    if (externalId.AsLong() == 0) return;
    if (last == 0)
        WriteTombstone(records, table_name, externalId);
    else
        WriteTombstone(records, table_name, row->At(0), externalId);
}

void RunDeletion(const RecordStore& records, std::string_view deletion, std::string_view parameter, int id) {
    store::QueryDef query = records.database.OpenQueryDef(deletion);
    query.Set(parameter, id);
    records.RunUnit(query);
}

}  // namespace

// A comment's key is its id alone, a document's the prefix and the id.
void DeleteComment(const RecordStore& records, int id) {
    records.Reporting([&] {
        WriteDocumentTombstone(
            records, fmt::format("SELECT comment_id FROM qb_comments WHERE qb_comment_id = {};", id),
            "comments");
        RunDeletion(records, "Delete Comment", "comID", id);
    });
}

void DeleteDocument(const RecordStore& records, const DocumentKind& kind, int id) {
    records.Reporting([&] {
        WriteDocumentTombstone(records,
                               fmt::format("SELECT {}, {} FROM {} WHERE {} = {};", kind.prefixColumn,
                                           kind.authorityIdColumn, kind.table, kind.idColumn, id),
                               kind.tombstoneTable);
        RunDeletion(records, kind.deletionQuery, kind.deletionParameter, id);
    });
}

void DeleteDocument(const RecordStore& records, std::string_view prefix, int id) {
    if (const DocumentKind* kind = FindDocumentKind(prefix)) DeleteDocument(records, *kind, id);
}

}  // namespace quillon::records
