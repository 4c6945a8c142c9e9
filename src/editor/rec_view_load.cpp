#include "editor/rec_view_load.h"

#include <fmt/format.h>

#include <utility>

#include "core/names.h"

namespace quillon::editor {

using store::Recordset;

namespace {

int IntOf(const Recordset& row, std::string_view column) {
    return static_cast<int>(row[column].AsLong());
}

void TakeName(const Recordset& row, CurrentTaxon& taxon) {
    taxon.unit_ind1 = row["unit_ind1"].AsText();
    taxon.unit_name1 = row["unit_name1"].AsText();
    taxon.unit_ind2 = row["unit_ind2"].AsText();
    taxon.unit_name2 = row["unit_name2"].AsText();
    taxon.unit_ind3 = row["unit_ind3"].AsText();
    taxon.unit_name3 = row["unit_name3"].AsText();
    taxon.unit_ind4 = row["unit_ind4"].AsText();
    taxon.unit_name4 = row["unit_name4"].AsText();
}

void TakeRow(const Recordset& row, CurrentTaxon& taxon) {
    taxon.qb_id = IntOf(row, "qb_id");
    taxon.tsn = IntOf(row, "tsn");
    TakeName(row, taxon);
    taxon.unnamed_taxon_ind = row["unnamed_taxon_ind"].AsText();
    taxon.usage = row["usage"].AsText();
    taxon.unacceptability_reason = row["unacceptability_reason"].AsText();
    taxon.taxonomic_credibility_rating = row["taxonomic_credibility_rating"].AsText();
    taxon.taxonomic_completeness_rating = row["taxonomic_completeness_rating"].AsText();
    taxon.currency_rating = row["currency_rating"].AsText();
    taxon.phylo_sort_sequence = IntOf(row, "phylo_sort_sequence");
    taxon.initial_time_stamp = row["initial_time_stamp"];
    taxon.parent_tsn = IntOf(row, "parent_tsn");
    taxon.parent_qb_id = IntOf(row, "parent_qb_id");
    taxon.qb_taxon_author_id = IntOf(row, "qb_taxon_author_id");
    taxon.hybrid_author_id = IntOf(row, "hybrid_author_id");
    taxon.kingdom_id = IntOf(row, "kingdom_id");
    taxon.rank_id = IntOf(row, "rank_id");
    taxon.uncertain_parent_ind = IntOf(row, "uncertain_parent_ind");
}

std::unique_ptr<Recordset> OpenWith(store::Database& database, std::string_view query,
                                    std::string_view parameter, int id) {
    return database.OpenQueryDef(query).Set(parameter, id).CreateSnapshot();
}

void LoadRank(store::Database& database, CurrentTaxon& taxon) {
    const auto rank = OpenWith(database, "Get Rank Info", "rank", taxon.rank_id);
    if (rank->Eof()) return;
    taxon.rank_name = rank->Get("rank_name").AsText();
    taxon.direct_parent_rank_id = IntOf(*rank, "direct_parent_rank_id");
    taxon.required_parent_rank_id = IntOf(*rank, "required_parent_rank_id");
}

std::string AuthorOf(store::Database& database, Prompter& prompter, int authorId) {
    if (authorId == 0) return {};
    const auto author = OpenWith(database, "Get Author Name", "authorid", authorId);
    if (!author->Eof()) return author->Get("taxon_author").AsText();
    prompter.Message(fmt::format("No Author name in dataset for author id '{}'!", authorId));
    return {};
}

void LoadParent(store::Database& database, CurrentTaxon& taxon) {
    if (taxon.parent_qb_id == 0) return;
    const auto parent = OpenWith(database, "Get Parent Name", "Parent_id", taxon.parent_qb_id);
    if (parent->Eof()) return;
    taxon.parent_name = BuildSciName(NameFieldsOf(*parent));
    const auto rank = OpenWith(database, "Get Rank Info", "rank", IntOf(*parent, "rank_id"));
    if (!rank->Eof()) taxon.parent_rank_name = rank->Get("rank_name").AsText();
}

}  // namespace

void ClearRecordVariables(ApplicationState& state) {
    const int qb_id = state.currentTaxon.qb_id;
    state.currentTaxon = CurrentTaxon();
    state.currentTaxon.qb_id = qb_id;
}

void LoadTaxon(ApplicationState& state, Prompter& prompter, int qb_id) {
    store::Database& database = *state.gDatabase;
    const auto row = OpenWith(database, "Get Taxon Data", "qbid", qb_id);
    if (row->Eof()) return prompter.Message(fmt::format("Not Found, qb_id: {}", qb_id));
    CurrentTaxon taxon;
    TakeRow(*row, taxon);
    const auto nodc = OpenWith(database, "Get NODC Id", "ID", qb_id);
    if (!nodc->Eof()) taxon.nodc_id = nodc->Get("nodc_id").AsText();
    LoadRank(database, taxon);
    taxon.taxon_author = AuthorOf(database, prompter, taxon.qb_taxon_author_id);
    taxon.hybrid_author = AuthorOf(database, prompter, taxon.hybrid_author_id);
    LoadParent(database, taxon);
    state.currentTaxon = std::move(taxon);
}

std::string GetRankName(store::Database& database, int rank_id) {
    const auto rank = OpenWith(database, "Get Rank Info", "rank", rank_id);
    return rank->Eof() ? "<unknown>" : rank->Get("rank_name").AsText();
}

int GetTSN(store::Database& database, int qb_id) {
    const auto row =
        database.CreateSnapshot(fmt::format("SELECT tsn FROM qb_taxonomic_units WHERE qb_id = {}", qb_id));
    return row->Eof() ? 0 : IntOf(*row, "tsn");
}

int GetKingdomId(store::Database& database) {
    const auto row = database.CreateSnapshot(
        "SELECT qb_id  FROM qb_taxonomic_units INNER JOIN taxonomic_unit_types ON "
        "qb_taxonomic_units.rank_id = taxonomic_unit_types.rank_id Where rank_name = \"Kingdom\"");
    return row->Eof() ? 0 : IntOf(*row, "qb_id");
}

}  // namespace quillon::editor
