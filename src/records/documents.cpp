#include "records/documents.h"

#include <string>

#include "records/tombstones.h"

namespace quillon::records {

namespace {

// A comment or one of the three kinds of documents: how its external key is read, and how it is deleted.
struct Kind {
    std::string_view readKey;     // to be completed by the local id; the external id is the last column
    std::string_view table_name;  // of the tombstone
    std::string_view deletion;
    std::string_view parameter;
};

constexpr Kind kComment = {"Select comment_id from qb_comments where qb_comment_id = ", "comments",
                           "Delete Comment", "comID"};
constexpr Kind kExpert = {"Select expert_id_prefix, expert_id from qb_experts where qb_expert_id = ",
                          "experts", "Delete Expert", "expid"};
constexpr Kind kPublication = {
    "Select publication_id_prefix,publication_id from qb_publications where qb_publication_id = ",
    "publications", "Delete Publication", "pubid"};
constexpr Kind kOtherSource = {
    "Select source_id_prefix, source_id from qb_other_sources where qb_source_id = ", "other_sources",
    "Delete Source", "srcid"};

// A comment's key is its id alone, a document's the prefix and the id.
void WriteDocumentTombstone(const RecordStore& records, const Kind& kind, int id) {
    const auto row = records.database.CreateSnapshot(std::string(kind.readKey) + std::to_string(id) + ";");
    if (row->Eof()) return;
    const std::size_t last = row->ColumnCount() - 1;
    const Value externalId = row->At(last);
    if (externalId.AsLong() == 0) return;
    if (last == 0)
        WriteTombstone(records, kind.table_name, externalId);
    else
        WriteTombstone(records, kind.table_name, row->At(0), externalId);
}

void Delete(const RecordStore& records, const Kind& kind, int id) {
    records.Reporting([&] {
        WriteDocumentTombstone(records, kind, id);
        store::QueryDef query = records.database.OpenQueryDef(kind.deletion);
        query.Set(kind.parameter, id);
        records.RunUnit(query);
    });
}

}  // namespace

void DeleteComment(const RecordStore& records, int id) {
    Delete(records, kComment, id);
}

void DeleteExpert(const RecordStore& records, int id) {
    Delete(records, kExpert, id);
}

void DeletePublication(const RecordStore& records, int id) {
    Delete(records, kPublication, id);
}

void DeleteOtherSource(const RecordStore& records, int id) {
    Delete(records, kOtherSource, id);
}

void DeleteDocument(const RecordStore& records, std::string_view prefix, int id) {
    if (prefix == "PUB") DeletePublication(records, id);
    if (prefix == "EXP") DeleteExpert(records, id);
    if (prefix == "SRC") DeleteOtherSource(records, id);
}

}  // namespace quillon::records
