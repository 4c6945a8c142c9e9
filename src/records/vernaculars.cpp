#include "records/vernaculars.h"

#include <string>
#include <utility>
#include <vector>

#include "records/links.h"
#include "records/tombstones.h"

namespace quillon::records {

namespace {

// The links of one vernacular: the prefix of the document, and its id joined with the qb_vern_id.
std::vector<std::pair<std::string, std::string>> LinksOf(store::Database& database, int qb_id,
                                                         const Value& qb_vern_id) {
    store::QueryDef query = database.OpenQueryDef("Get VReference Links");
    query.Set("qbid", qb_id).Set("qbvernid", qb_vern_id);
    std::vector<std::pair<std::string, std::string>> links;
    for (const auto rows = query.CreateSnapshot(); !rows->Eof(); rows->MoveNext()) {
        links.emplace_back(rows->Get("qb_documentation_id_prefix").AsText(),
                           rows->Get("qb_documentation_id").AsText() + "|" + qb_vern_id.AsText());
    }
    return links;
}

}  // namespace

void DeleteVernaculars(const RecordStore& records, int qb_id, std::optional<int> vernId) {
    std::string sql = "Select * from qb_vernaculars where qb_id = " + std::to_string(qb_id);
    if (vernId) sql += " and StrComp(qb_vern_id, '" + std::to_string(*vernId) + "',0);";
    records.Reporting([&] {
        for (const auto rows = records.database.CreateDynaset(sql); !rows->Eof(); rows->MoveNext()) {
            const Value qb_vern_id = rows->Get("qb_vern_id");
            if (rows->Get("tsn").AsLong() != 0) {
                WriteTombstone(records, "vernaculars", rows->Get("tsn"), rows->Get("vern_id"));
            }
            rows->Delete();
            for (const auto& [prefix, value] : LinksOf(records.database, qb_id, qb_vern_id))
                DeleteVernRefLink(records, qb_id, prefix, value);
        }
    });
}

}  // namespace quillon::records
