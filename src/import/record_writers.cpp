#include "import/record_writers.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "exchange/tagged_format.h"

namespace quillon::importing {

namespace {

using exchange::RecordLayout;

// Each column once, even if the line has it twice.
std::vector<std::string_view> ColumnsOf(const RecordLayout& record, std::string_view leftOut) {
    std::vector<std::string_view> columns;
    for (const std::string_view column : record.Columns())
        if (column != leftOut && std::find(columns.begin(), columns.end(), column) == columns.end())
            columns.push_back(column);
    return columns;
}

store::RowWriter WriterOf(store::Database& database, const RecordLayout& record,
                          std::string_view leftOut = {}) {
    return store::RowWriter(database, record.table, ColumnsOf(record, leftOut));
}

store::RowWriter WriterWith(store::Database& database, const RecordLayout& record, std::string_view added) {
    std::vector<std::string_view> columns = ColumnsOf(record, {});
    columns.push_back(added);
    return store::RowWriter(database, record.table, columns);
}

}  // namespace

RecordWriters::RecordWriters(store::Database& database)
    : taxa(WriterOf(database, exchange::kTaxonRecord, "taxon_author_id")),
      authors(WriterOf(database, exchange::kAuthorRecord)),
      nodcIds(WriterOf(database, exchange::kNodcRecord)),
      vernaculars(WriterWith(database, exchange::kVernacularRecord, "hex_vernacular_name")),
      synonyms(WriterOf(database, exchange::kSynonymRecord)),
      divisions(WriterOf(database, exchange::kDivisionRecord)),
      jurisdictions(WriterOf(database, exchange::kJurisdictionRecord)),
      references(WriterOf(database, exchange::kReferenceRecord, "vernacular_name")),
      vernReferences(WriterOf(database, exchange::kVernReferenceRecord)),
      publications(WriterOf(database, exchange::kPublicationRecord)),
      experts(WriterOf(database, exchange::kExpertRecord)),
      otherSources(WriterOf(database, exchange::kSourceRecord)),
      comments(WriterOf(database, exchange::kCommentRecord)),
      commentLinks(WriterOf(database, exchange::kCommentLinkRecord)),
      changeTracks(WriterOf(database, exchange::kChangeTrackRecord)),
      changeOperations(WriterOf(database, exchange::kChangeOperationRecord)),
      changeComments(WriterWith(database, exchange::kChangeCommentRecord, "qb_chg_cmt_id")) {}

}  // namespace quillon::importing
