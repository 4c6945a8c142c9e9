// What others may have put into a DataSet file, and what others may read from it; and bulk loads that were
// cut off.
#include <gtest/gtest.h>

#include "child_process.h"
#include "stock_client.h"
#include "store/bulk.h"
#include "store_fixture.h"

namespace quillon::store {
namespace {

class PlantedSchema : public StoreTest {
protected:
    PlantedSchema() { db().Close(); }
    // Into the closed file, which is then open again.
    void Plant(const std::string& sql) {
        EXPECT_EQ(StockClient(f.dir.File("test.mdb")).Rows(sql), "");
        Reopen();
    }
};

TEST_F(PlantedSchema, ATriggerDoesNothing) {
    Plant(
        "CREATE TRIGGER evil AFTER INSERT ON journal BEGIN DELETE FROM qb_taxonomic_units; END;"
        "CREATE TRIGGER worse BEFORE UPDATE ON qb_taxonomic_units BEGIN SELECT RAISE(ABORT, 'no'); END;");
    Execute("INSERT INTO journal (qb_id) VALUES (1)");
    Execute("UPDATE qb_taxonomic_units SET usage = 'invalid'");
    RowWriter(db(), "journal", {"qb_id"}).Id(2).Insert();
    EXPECT_EQ(Dump("SELECT qb_id, usage FROM qb_taxonomic_units"), "1\tinvalid\n");
    EXPECT_EQ(Dump("SELECT qb_id FROM journal"), "1\n2\n");
}

TEST_F(PlantedSchema, AViewIsNotSeen) {
    Plant(
        "CREATE VIEW spy AS SELECT * FROM qb_taxonomic_units;"
        "DROP TABLE kingdoms; CREATE VIEW kingdoms AS SELECT 1 AS kingdom_id, load_extension('x') AS "
        "kingdom_name;");
    EXPECT_EQ(db().FindTableDef("spy"), nullptr);
    EXPECT_EQ(NumberOf([&] { Dump("SELECT * FROM spy"); }), 3078);
    EXPECT_EQ(NumberOf([&] { Rows("Get Kingdom Name", {{"kingid", 1}}); }), 3078);
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units"), "1\n");
}

TEST_F(PlantedSchema, TablesOfAnotherShapeAreLeftOut) {
    Plant(
        "CREATE TABLE qb_made (a LONG, b LONG GENERATED ALWAYS AS (a * 2));"
        "CREATE TABLE qb_x (qb_id WHATEVER, name TEXT(5));"
        "CREATE TABLE qb_y (name TEXT);"
        "CREATE TABLE qb_z (name TEXT(999));"
        "CREATE TABLE [qb w] (a, b, PRIMARY KEY (b, a)) WITHOUT ROWID;");
    EXPECT_EQ(db().TableDefs().size(), 25U);
    for (const char* table : {"qb_made", "qb_x", "qb_y", "qb_z", "qb w"})
        EXPECT_EQ(NumberOf([&] { Dump("SELECT * FROM [" + std::string(table) + "]"); }), 3078) << table;
    Execute("INSERT INTO journal (qb_id) VALUES (1)");
}

TEST_F(PlantedSchema, AnIndexOverAnExpressionIsIgnored) {
    Plant(
        "CREATE INDEX [qb_taxonomic_units.odd] ON qb_taxonomic_units (upper(unit_name1));"
        "CREATE INDEX odd ON journal (abs(qb_id));");
    EXPECT_EQ(db().FindTableDef("qb_taxonomic_units")->Index("odd"), nullptr);
    {
        BulkLoad load(f.engine, db(), true);
        RowWriter(db(), "qb_taxonomic_units", {"qb_id", "unit_name1"}).Id(2).Text("Aa").Insert();
        load.Finish();
    }
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units WHERE unit_name1 = 'AA'"), "2\n");
}

TEST_F(PlantedSchema, TheChecksOfATableBindEveryWriter) {
    StockClient stock(f.dir.File("test.mdb"));
    EXPECT_EQ(stock.Rows("INSERT INTO kingdoms (kingdom_id) VALUES (256)"),
              "error: CHECK constraint failed: kingdom_id");
    EXPECT_EQ(stock.Rows("UPDATE qb_taxonomic_units SET unnamed_taxon_ind = 'XXXXX'"),
              "error: CHECK constraint failed: unnamed_taxon_ind");
    EXPECT_EQ(stock.Rows("UPDATE qb_taxonomic_units SET parent_qb_id = 3000000000"),
              "error: CHECK constraint failed: parent_qb_id");
}

TEST_F(PlantedSchema, AQueryThatCannotBeReadFailsWhereItIsOpened) {
    Plant(
        "UPDATE qln_queries SET sql = 'SELEC rubbish' WHERE name = 'Get Data';"
        "INSERT INTO qln_queries (name, sql) VALUES ('null', NULL)");
    EXPECT_EQ(NumberOf([&] { db().OpenQueryDef("Get Data"); }), 3075);
    EXPECT_EQ(NumberOf([&] { db().OpenQueryDef("null"); }), 3075);
    EXPECT_EQ(Dump("SELECT qb_id FROM [Get All Taxons]"), "1\n");
}

// One row in every table, with a value in every field.
TEST_F(PlantedSchema, AStockClientReadsEveryTable) {
    Reopen();
    Execute("DELETE * FROM qb_taxonomic_units");
    const std::vector<TableDef> tables = db().TableDefs();
    for (const TableDef& table : tables) {
        Execute("DELETE * FROM " + table.name);
        const auto rows = db().OpenTable(table.name);
        rows->AddNew();
        for (const FieldDef& field : table.fields) {
            const bool text = field.type == FieldType::Text || field.type == FieldType::Memo;
            rows->Set(field.name, field.type == FieldType::DateTime ? Value("2001-02-03")
                                  : text                            ? Value("é")
                                                                    : Value(1));
        }
        rows->Update();
    }
    db().Close();
    StockClient stock(f.dir.File("test.mdb"));
    EXPECT_EQ(tables.size(), 25U);
    for (const TableDef& table : tables) {
        EXPECT_EQ(stock.Rows("SELECT count(*) FROM " + table.name), "1\n") << table.name;
        std::string row;
        for (const FieldDef& field : table.fields) {
            const bool text = field.type == FieldType::Text || field.type == FieldType::Memo;
            const std::string value =
                field.type == FieldType::DateTime ? "2001-02-03 00:00:00" : (text ? "é" : "1");
            row += (row.empty() ? "" : "\t") + value;
            EXPECT_EQ(stock.Rows("SELECT min(" + field.name + "), count(DISTINCT " + field.name + ") FROM " +
                                 table.name),
                      value + "\t1\n")
                << table.name << "." << field.name;
            EXPECT_EQ(stock.Rows("SELECT count(*) FROM " + table.name + " WHERE " + field.name + " IS NULL"),
                      "0\n");
            EXPECT_EQ(stock.Rows("SELECT count(*) FROM " + table.name + " ORDER BY " + field.name), "1\n");
        }
        EXPECT_EQ(stock.Rows("SELECT * FROM " + table.name), row + "\n") << table.name;
        if (table.Field("qb_id") != nullptr) {
            EXPECT_EQ(stock.Rows("SELECT qb_id FROM " + table.name + " WHERE qb_id = 1"), "1\n")
                << table.name;
        }
    }
}

// A load that fills qb_taxonomic_units and puts its indexes off.
class BulkLoads : public StoreTest {
protected:
    static void AddTaxon(RowWriter& writer, int id) {
        writer.Id(id).Text("Name" + std::to_string(id)).Insert();
    }
    // How many indexes stand in the closed file, and how many wait to be built.
    std::string Indexes() {
        StockClient stock(f.dir.File("test.mdb"));
        return stock.Rows("SELECT count(*) FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL") +
               stock.Rows("SELECT count(*) > 0 FROM qln_waiting_indexes");
    }
};

TEST_F(BulkLoads, GiveBackTheIndexesThatTheyPutOff) {
    Execute("CREATE INDEX mine ON qb_comments (commentator)");
    db().Close();
    const std::string before = Indexes();
    Reopen();
    {
        BulkLoad load(f.engine, db(), true);
        RowWriter writer(db(), "qb_taxonomic_units", {"qb_id", "unit_name1"});
        for (int id = 2; id <= 50; ++id) AddTaxon(writer, id);
        EXPECT_EQ(NumberOf([&] { AddTaxon(writer, 50); }), 3022);
        load.Finish();
    }
    EXPECT_EQ(db().FindTableDef("qb_comments")->Index("mine")->FieldList(), "+commentator");
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units WHERE unit_name1 = 'NAME7'"), "7\n");
    db().Close();
    EXPECT_EQ(Indexes(), before);
    EXPECT_EQ(before.substr(before.find('\n')), "\n0\n");
}

TEST_F(BulkLoads, CutOffAreCompletedAtTheNextOpening) {
    db().Close();
    f.state.gDatabase = nullptr;
    const std::string path = f.dir.File("test.mdb"), before = Indexes();
    ChildProcess child([&](ChildProcess&) -> int {
        Engine engine;
        const DatabaseHandle database = engine.OpenDatabase(path);
        BulkLoad load(engine, *database, true);
        RowWriter writer(*database, "qb_taxonomic_units", {"qb_id", "unit_name1"});
        for (int id = 2; id < 20; ++id) AddTaxon(writer, id);
        engine.EndJob();
        _exit(7);
    });
    EXPECT_EQ(child.Wait(), 7);
    f.state.gDatabase = f.engine.OpenDatabase(path);
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units WHERE unit_name1 = 'NAME7'"), "7\n");
    EXPECT_GT(db().FindTableDef("qb_taxonomic_units")->indexes.size(), 10U);
    db().Close();
    EXPECT_EQ(Indexes(), before);
}

// What the load had made durable has no look-up indexes: the opening above had something to do.
TEST_F(BulkLoads, LeaveAFileWithoutIndexesWhenCutOff) {
    db().Close();
    f.state.gDatabase = nullptr;
    const std::string path = f.dir.File("test.mdb"), before = Indexes();
    ChildProcess child([&](ChildProcess&) -> int {
        Engine engine;
        const DatabaseHandle database = engine.OpenDatabase(path);
        const BulkLoad load(engine, *database, true);
        engine.EndJob();
        _exit(7);
    });
    EXPECT_EQ(child.Wait(), 7);
    EXPECT_NE(Indexes(), before);
    EXPECT_EQ(Indexes().substr(Indexes().find('\n')), "\n1\n");
}

}  // namespace
// A name of another program may hold the sign that closes a name in a statement.
TEST_F(StoreTest, TakesNamesWithAClosingBracket) {
    TableDef odd;
    odd.name = "odd]name";
    odd.fields = {{"id", FieldType::Long, 0, true, false}, {"a]b]", FieldType::Text, 9, false, false}};
    odd.indexes = {{"PrimaryKey", {"id"}, true}, {"by", {"a]b]"}, false}};
    db().AppendTable(odd);
    for (const char* text : {"two", "one"}) {
        const auto rows = db().OpenTable("odd]name");
        rows->AddNew();
        rows->Set("a]b]", text);
        rows->Update();
    }
    const auto rows = db().OpenTable("odd]name");
    rows->SetIndex("by");
    EXPECT_EQ(testkit::DumpRows(*rows), "2\tone\n1\ttwo\n");
    EXPECT_EQ(testkit::DumpRows(*db().CreateSnapshot("odd]name")), "1\ttwo\n2\tone\n");
    EXPECT_EQ(Dump("SELECT [a]]b]]] FROM [odd]]name] WHERE [odd]]name].[a]]b]]] = 'one';"), "one\n");
}

}  // namespace quillon::store
