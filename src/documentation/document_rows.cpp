#include "documentation/document_rows.h"

#include <fmt/format.h>

#include "documentation/association.h"

namespace quillon::documentation {

using store::Recordset;

namespace {

// Shown as the language of a deleted vernacular.
constexpr std::string_view kUnspecified = "unspecified";

constexpr std::string_view kLanguage =
    "PARAMETERS vernacular Long; SELECT language FROM qb_vernaculars WHERE qb_vern_id = vernacular;";

// Both tables of links. The order of the first columns is that of the rows: document, association,
// vernacular.
constexpr std::string_view kRows =
    "PARAMETERS taxon Long; "
    "SELECT {qbId}, '{scientific}' As assoc, {id}, 0 As qb_vern_id, vernacular_name, "
    "qb_change_track_id{ofName} "
    "FROM qb_reference_links INNER JOIN {table} ON qb_reference_links.qb_documentation_id = {table}.{qbId} "
    "WHERE qb_id = taxon AND qb_documentation_id_prefix = '{prefix}' "
    "UNION "
    "SELECT {qbId}, '{vernacular}' As assoc, {id}, qb_vern_id, vernacular_name, "
    "NULL As qb_change_track_id{ofVernacular} "
    "FROM qb_vern_ref_links INNER JOIN {table} ON qb_vern_ref_links.qb_documentation_id = {table}.{qbId} "
    "WHERE qb_id = taxon AND qb_documentation_id_prefix = '{prefix}';";

std::string SelectOf(const DocumentDescription& description) {
    std::string ofName, ofVernacular;
    for (const DocumentField& field : description.fields) {
        ofName += fmt::format(", {}", field.column);
        ofVernacular += fmt::format("{}{}", field.ofLink ? ", 0 As " : ", ", field.column);
    }
    const DocumentKind& kind = description.kind;
    using fmt::arg;
    return fmt::format(fmt::runtime(kRows), arg("scientific", kScientificName),
                       arg("vernacular", kVernacular), arg("qbId", kind.idColumn),
                       arg("id", kind.authorityIdColumn), arg("table", kind.table),
                       arg("prefix", kind.prefix), arg("ofName", ofName), arg("ofVernacular", ofVernacular));
}

std::string LanguageOf(store::Database& database, std::int64_t qb_vern_id) {
    const auto row = database.CreateQueryDef("", kLanguage).Set("vernacular", qb_vern_id).CreateSnapshot();
    return row->Eof() ? std::string(kUnspecified) : row->Get("language").AsText();
}

std::string CellOf(const Recordset& row, const DocumentField& field) {
    if (field.kind != DocumentField::Kind::Check) return row[field.column].AsText();
    return row[field.column].AsBoolean() ? "Yes" : "No";
}

GridControl::Row GridRowOf(store::Database& database, const DocumentDescription& description,
                           const Recordset& row, std::string_view scientificName) {
    const DocumentColumns columns(description);
    GridControl::Row cells(columns.count);
    const std::int64_t qb_vern_id = row["qb_vern_id"].AsLong();
    const bool ofVernacular = row["assoc"].AsText() == kVernacular;
    cells[DocumentColumns::name] = ofVernacular ? fmt::format("{} [{}]", row["vernacular_name"].AsText(),
                                                              LanguageOf(database, qb_vern_id))
                                                : std::string(scientificName);
    for (std::size_t i = 0; i < description.fields.size(); ++i)
        cells[DocumentColumns::OfField(i)] = CellOf(row, description.fields[i]);
    const DocumentKind& kind = description.kind;
    cells[columns.qbId] = cells[columns.origQbId] = std::to_string(row[kind.idColumn].AsLong());
    cells[columns.id] = std::to_string(row[kind.authorityIdColumn].AsLong());
    cells[columns.changeTrack] = std::to_string(row["qb_change_track_id"].AsLong());
    cells[columns.association] = ofVernacular ? kVernacular : kScientificName;
    cells[columns.qbVernId] = std::to_string(qb_vern_id);
    return cells;
}

}  // namespace

std::vector<GridControl::Row> ReadDocumentRows(store::Database& database,
                                               const DocumentDescription& description, int qb_id,
                                               std::string_view scientificName) {
    std::vector<GridControl::Row> rows;
    const auto documents =
        database.CreateQueryDef("", SelectOf(description)).Set("taxon", qb_id).CreateSnapshot();
    for (; !documents->Eof(); documents->MoveNext())
        rows.push_back(GridRowOf(database, description, *documents, scientificName));
    return rows;
}

}  // namespace quillon::documentation
