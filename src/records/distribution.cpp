#include "records/distribution.h"

#include <algorithm>
#include <string_view>

#include "records/tombstones.h"

namespace quillon::records {

namespace {

constexpr std::string_view kDivision = "geographic_division", kJurisdiction = "jurisdiction";

bool AddDivision(const RecordStore& records, const TaxonKey& taxon, const std::string& division) {
    store::QueryDef query = records.database.OpenQueryDef("Insert Division");
    query.Set("qbid", taxon.qb_id).Set("division", division).Set("thetsn", Value::IdOrNull(taxon.tsn));
    return records.RunUnit(query);
}

bool AddJurisdiction(const RecordStore& records, const TaxonKey& taxon,
                     const Jurisdictions::value_type& jurisdiction) {
    store::QueryDef query = records.database.OpenQueryDef("Insert Jurisdiction");
    query.Set("qbid", taxon.qb_id).Set("thetsn", Value::IdOrNull(taxon.tsn));
    query.Set("jurisdiction", jurisdiction.first).Set("origin", Value::TextOrNull(jurisdiction.second));
    return records.RunUnit(query);
}

void DeleteRows(const RecordStore& records, std::string_view deletion, int qb_id) {
    records.Reporting([&] {
        store::QueryDef query = records.database.OpenQueryDef(deletion);
        query.Set("qbid", qb_id);
        records.RunUnit(query);
    });
}

void ForgetTombstone(const RecordStore& records, const TaxonKey& taxon, std::string_view table_name,
                     const std::string& value) {
    if (taxon.tsn != 0) RemoveTombstone(records, table_name, taxon.tsn, Value(value));
}

bool Holds(const Jurisdictions& jurisdictions, const std::string& value) {
    return std::any_of(jurisdictions.begin(), jurisdictions.end(),
                       [&](const auto& each) { return each.first == value; });
}

void TombstoneDroppedDivisions(const RecordStore& records, int tsn, const Divisions& divisions,
                               const Divisions& old) {
    for (const std::string& value : old)
        if (std::find(divisions.begin(), divisions.end(), value) == divisions.end())
            WriteTombstone(records, kDivision, tsn, Value(value));
}

void TombstoneDroppedJurisdictions(const RecordStore& records, int tsn, const Jurisdictions& jurisdictions,
                                   const Jurisdictions& old) {
    for (const auto& [value, origin] : old)
        if (!Holds(jurisdictions, value)) WriteTombstone(records, kJurisdiction, tsn, Value(value));
}

}  // namespace

void AddDivisions(const RecordStore& records, const TaxonKey& taxon, const Divisions& divisions) {
    for (const std::string& division : divisions)
        records.Reporting([&] { AddDivision(records, taxon, division); });
}

void AddJurisdictions(const RecordStore& records, const TaxonKey& taxon, const Jurisdictions& jurisdictions) {
    for (const auto& jurisdiction : jurisdictions)
        records.Reporting([&] { AddJurisdiction(records, taxon, jurisdiction); });
}

void RewriteDivisions(const RecordStore& records, const TaxonKey& taxon, const Divisions& divisions,
                      const Divisions& old) {
    DeleteRows(records, "Delete Division Data", taxon.qb_id);
    for (const std::string& division : divisions) {
        records.Reporting([&] {
            if (AddDivision(records, taxon, division)) ForgetTombstone(records, taxon, kDivision, division);
        });
    }
    if (taxon.tsn != 0) TombstoneDroppedDivisions(records, taxon.tsn, divisions, old);
}

void RewriteJurisdictions(const RecordStore& records, const TaxonKey& taxon,
                          const Jurisdictions& jurisdictions, const Jurisdictions& old) {
    DeleteRows(records, "Delete Jurisdiction Data", taxon.qb_id);
    for (const auto& jurisdiction : jurisdictions) {
        records.Reporting([&] {
            if (AddJurisdiction(records, taxon, jurisdiction))
                ForgetTombstone(records, taxon, kJurisdiction, jurisdiction.first);
        });
    }
    if (taxon.tsn != 0) TombstoneDroppedJurisdictions(records, taxon.tsn, jurisdictions, old);
}

}  // namespace quillon::records
