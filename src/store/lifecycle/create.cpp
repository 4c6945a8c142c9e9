#include "store/lifecycle/create.h"

#include <algorithm>
#include <array>

#include "core/text.h"
#include "core/vocabulary.h"
#include "store/engine/whole_file.h"
#include "store/lifecycle/file_copy.h"
#include "store/queries/catalogue.h"
#include "store/schema/schema.h"
#include "store/schema/seed.h"

namespace quillon::store {

namespace {

constexpr std::size_t kKingdomWidth =
    10;  // the built-in names are padded to this length, which the root keeps

void SeedKingdom(Database& database, int index, const std::string& name) {
    const auto kingdoms = database.OpenTable("kingdoms");
    kingdoms->AddNew();
    kingdoms->Set("kingdom_id", index);
    kingdoms->Set("kingdom_name", index == 0 ? Value() : Value::TextOrNull(name));
    kingdoms->Update();
}

void SeedRanks(Database& database, int index, KingdomFamily family) {
    const auto ranks = database.OpenTable("taxonomic_unit_types");
    for (const Rank& rank : RanksOf(family)) {
        ranks->AddNew();
        ranks->Set("kingdom_id", index);
        ranks->Set("rank_id", rank.rank_id);
        ranks->Set("rank_name", rank.rank_name);
        ranks->Set("direct_parent_rank_id", rank.direct_parent_rank_id);
        ranks->Set("required_parent_rank_id", rank.required_parent_rank_id);
        ranks->Update();
    }
}

void SeedRoot(Database& database, int index, KingdomFamily family, std::string name) {
    const auto taxa = database.OpenTable("qb_taxonomic_units");
    taxa->AddNew();
    if (const RootTaxon* root = RootTaxonOf(index)) {
        name.resize(kKingdomWidth, ' ');
        taxa->Set("qb_id", 1);
        taxa->Set("parent_qb_id", 1);
        taxa->Set("parent_tsn", 0);
        taxa->Set("unit_name1", name);
        taxa->Set("usage", AcceptedUsage(family));
        taxa->Set("kingdom_id", index);
        taxa->Set("rank_id", kKingdomRankId);
        taxa->Set("uncertain_parent_ind", false);
        taxa->Set("tsn", root->tsn);
        taxa->Set("taxonomic_credibility_rating", root->credibility);
        taxa->Set("taxonomic_completeness_rating", root->completeness);
        taxa->Set("currency_rating", root->currency);
        taxa->Set("initial_time_stamp", root->stamp);
    }
    taxa->Update();
}

void SeedChangeOperations(Database& database) {
    const auto operations = database.OpenTable("change_operations_lookup");
    int id = 0;
    for (const std::string_view operation : ChangeOperations()) {
        operations->AddNew();
        operations->Set("chg_op_id", ++id);
        operations->Set("change_operation", operation);
        operations->Update();
    }
}

// Runs `step` as one unit, which a failure undoes.
template <typename Step>
void InUnit(Engine& engine, Step step) {
    engine.BeginTrans();
    try {
        step();
        engine.CommitTrans();
    } catch (...) {
        if (engine.InTransaction()) engine.Rollback();
        throw;
    }
}

void DefineTablesAndQueries(Engine& engine, Database& database, const GoOn& goOn) {
    InUnit(engine, [&] {
        for (const TableSpec& table : DataSetTables()) {
            RequireGoOn(goOn);
            database.AppendTable(TableDefOf(table));
        }
        for (const NamedQuery& query : NamedQueryCatalogue()) {
            RequireGoOn(goOn);
            database.CreateQueryDef(query.name, query.sql);
        }
        database.DeleteTable("taxunits");
        database.DeleteTable("authors");
    });
}

// The tables with rows in a new DataSet, besides its root taxon.
constexpr std::array<std::string_view, 4> kSeeded = {"kingdoms", "taxonomic_unit_types", "db_control",
                                                     "change_operations_lookup"};

}  // namespace

void SeedDataSet(Engine& engine, Database& database, std::string_view kingdomName, std::string_view version) {
    const std::string name(Trim(kingdomName));
    const int index = KingdomIndex(name);
    const KingdomFamily family = FamilyOfKingdom(name);
    InUnit(engine, [&] {
        SeedKingdom(database, index, name);
        if (index != 0) SeedRanks(database, index, family);
        SeedRoot(database, index, family, name);
        const auto control = database.OpenTable("db_control");
        control->AddNew();
        control->Set("attribute", "Version");
        control->Set("value", version);
        control->Update();
        SeedChangeOperations(database);
    });
}

void MakeDataSetFile(Engine& engine, const std::string& path, std::string_view kingdomName,
                     std::string_view version, const GoOn& goOn) {
    RefuseOccupiedPlace(path);
    WithStoreErrors([&] {
        TemporaryFile making(path, BeginsLikeDataSet);
        const DatabaseHandle database = engine.CreateDatabaseIn(making.Path());
        WriteWithoutSyncs(*database->Shared());
        DefineTablesAndQueries(engine, *database, goOn);
        SeedDataSet(engine, *database, kingdomName, version);
        database->Close();
        PublishDataSet(making, goOn);
    });
}

bool HoldsOnlySeedRows(Database& database) {
    for (const TableDef& table : database.TableDefs()) {
        if (std::find(kSeeded.begin(), kSeeded.end(), table.name) != kSeeded.end()) continue;
        const std::string root = table.name == "qb_taxonomic_units" ? " WHERE qb_id <> 1" : "";
        const auto rows =
            database.OpenRecordset("SELECT * FROM [" + table.name + "]" + root, RecordsetType::ForwardOnly);
        if (!rows->Eof()) return false;
    }
    return true;
}

}  // namespace quillon::store
