// The vernaculars of a taxon, each with its own links to documents.
#include <utility>
#include <vector>

#include "editor/deletion.h"

namespace quillon::editor {

namespace {

// The links of one vernacular: the prefix of the document, and its id joined with the qb_vern_id.
std::vector<std::pair<std::string, std::string>> LinksOf(store::Database& database, int qbId,
                                                         const Value& qb_vern_id) {
    store::QueryDef query = database.OpenQueryDef("Get VReference Links");
    query.Set("qbid", qbId).Set("qbvernid", qb_vern_id);
    std::vector<std::pair<std::string, std::string>> links;
    for (const auto rows = query.CreateSnapshot(); !rows->Eof(); rows->MoveNext()) {
        links.emplace_back(rows->Get("qb_documentation_id_prefix").AsText(),
                           rows->Get("qb_documentation_id").AsText() + "|" + qb_vern_id.AsText());
    }
    return links;
}

}  // namespace

void Deletion::DeleteVernaculars(int qbId, std::optional<int> vernId) {
    std::string sql = "Select * from qb_vernaculars where qb_id = " + std::to_string(qbId);
    if (vernId) sql += " and StrComp(qb_vern_id, '" + std::to_string(*vernId) + "',0);";
    try {
        for (const auto rows = Db().CreateDynaset(sql); !rows->Eof(); rows->MoveNext()) {
            const Value qb_vern_id = rows->Get("qb_vern_id");
            if (rows->Get("tsn").AsLong() != 0) {
                WriteTombstone("vernaculars", rows->Get("tsn"), rows->Get("vern_id"));
            }
            rows->Delete();
            for (const auto& [prefix, value] : LinksOf(Db(), qbId, qb_vern_id))
                DeleteVernRefLink(prefix, value);
        }
    } catch (const store::StoreError& error) {
        prompter_.Message("Failed " + error.Description());
    }
}

}  // namespace quillon::editor
