#include "records/vernaculars.h"

#include <fmt/format.h>

#include <string>
#include <utility>
#include <vector>

#include "core/text.h"
#include "records/links.h"
#include "records/tombstones.h"
#include "store/unit.h"

namespace quillon::records {

namespace {

constexpr std::string_view kInsert =
    "PARAMETERS vername Text, lang Text, approved Text, qbid Long, hexvername Text, thetsn Long, vernid "
    "Long; "
    "INSERT INTO qb_vernaculars ( vernacular_name, language, approved_ind, qb_id, hex_vernacular_name, tsn, "
    "vern_id ) SELECT vername, lang, approved, qbid, hexvername, thetsn, vernid;";

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

void DeleteLinks(const RecordStore& records, int qb_id, const Value& qb_vern_id) {
    for (const auto& [prefix, value] : LinksOf(records.database, qb_id, qb_vern_id))
        DeleteVernRefLink(records, qb_id, prefix, value);
}

void WriteRow(const RecordStore& records, const TaxonKey& taxon, const Vernacular& vernacular) {
    store::QueryDef query = records.database.CreateQueryDef("", kInsert);
    query.Set("vername", Value::TextOrNull(vernacular.name))
        .Set("lang", Value::TextOrNull(vernacular.language))
        .Set("approved", vernacular.approved)
        .Set("qbid", taxon.qb_id)
        .Set("hexvername", Value::TextOrNull(HexString(vernacular.name)))
        .Set("thetsn", Value::IdOrNull(taxon.tsn))
        .Set("vernid", Value::IdOrNull(vernacular.vern_id));
    store::Unit unit(records.engine);
    query.Execute();
    unit.Commit();
}

// Reads the authority's id of the row, which is about to go.
void WriteVernacularTombstone(const RecordStore& records, const TaxonKey& taxon, int qb_vern_id) {
    if (taxon.tsn == 0) return;
    const auto row = records.database.CreateSnapshot(
        fmt::format("Select vern_id from qb_vernaculars where qb_vern_id = {};", qb_vern_id));
    if (row->Eof() || row->At(0).AsLong() == 0) return;
    WriteTombstone(records, "vernaculars", taxon.tsn, row->At(0));
}

bool IsStored(const RecordStore& records, int qb_vern_id) {
    return qb_vern_id != 0 &&
           !records.database
                .CreateSnapshot(
                    fmt::format("SELECT qb_vern_id FROM qb_vernaculars WHERE qb_vern_id = {};", qb_vern_id))
                ->Eof();
}

void UpdateRow(const RecordStore& records, int qb_id, const Vernacular& vernacular) {
    store::QueryDef query = records.database.OpenQueryDef("Update Vernacular");
    query.Set("qbid", qb_id)
        .Set("vername", Value::TextOrNull(vernacular.name))
        .Set("hexvername", Value::TextOrNull(HexString(vernacular.name)))
        .Set("lang", Value::TextOrNull(vernacular.language))
        .Set("approved", vernacular.approved)
        .Set("qbvernid", vernacular.qb_vern_id);
    records.RunUnit(query);
}

}  // namespace

bool AddVernacular(const RecordStore& records, const TaxonKey& taxon, const Vernacular& vernacular) {
    return records.Reporting([&] { WriteRow(records, taxon, vernacular); });
}

void SaveVernacular(const RecordStore& records, const TaxonKey& taxon, const Vernacular& vernacular) {
    records.Reporting([&] {
        if (IsStored(records, vernacular.qb_vern_id)) return UpdateRow(records, taxon.qb_id, vernacular);
        WriteRow(records, taxon, vernacular);
        if (taxon.tsn != 0 && vernacular.vern_id != 0)
            RemoveTombstone(records, "vernaculars", taxon.tsn, Value(vernacular.vern_id));
    });
}

std::size_t CountVernacularLinks(store::Database& database, int qb_id, int qb_vern_id) {
    return LinksOf(database, qb_id, qb_vern_id).size();
}

void DeleteVernacular(const RecordStore& records, const TaxonKey& taxon, int qb_vern_id) {
    records.Reporting([&] {
        WriteVernacularTombstone(records, taxon, qb_vern_id);
        records.RunUnit(records.database.CreateQueryDef(
            "", fmt::format("DELETE * FROM qb_vernaculars WHERE qb_vern_id = {}", qb_vern_id)));
        DeleteLinks(records, taxon.qb_id, qb_vern_id);
    });
}

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
            DeleteLinks(records, qb_id, qb_vern_id);
        }
    });
}

}  // namespace quillon::records
