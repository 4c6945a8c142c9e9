// Tables of another DataSet under names of this one.
#include <gtest/gtest.h>

#include "stock_client.h"
#include "store_fixture.h"

namespace quillon::store {
namespace {

// A DataSet with two taxa of its own beside the root, linked into the one of the fixture.
class LinkedTable : public StoreTest {
protected:
    LinkedTable() {
        testkit::DataSetFixture other;
        other.Make("Animalia", "other.mdb");
        other.db().Execute(
            "INSERT INTO qb_taxon_authors_lookup (qb_taxon_author_id, taxon_author, kingdom_id) "
            "VALUES (7, 'Gray, 1821', 5)");
        other.db().Execute(
            "INSERT INTO qb_taxonomic_units (qb_id, unit_name1, qb_taxon_author_id, rank_id) "
            "VALUES (30, 'Zyx', 7, 180)");
        other.db().Execute(
            "INSERT INTO qb_taxonomic_units (qb_id, unit_name1, rank_id) VALUES (20, 'Abc', 180)");
        other.lifecycle.CloseDataSet();
        testkit::WriteFile(path, testkit::ReadFile(other.dir.File("other.mdb")));
        bytes = testkit::ReadFile(path);
    }
    void Link(const std::string& name, const std::string& source, const std::string& file) {
        TableDef link;
        link.name = name;
        link.SourceTableName = source;
        link.Connect = ";DATABASE=" + file + ";";
        db().AppendTable(link);
    }
    void LinkBoth() {
        Link("taxunits", "qb_taxonomic_units", path);
        Link("authors", "qb_taxon_authors_lookup", path);
    }

    std::string path = f.dir.File("the other.mdb");
    std::string bytes;
};

TEST_F(LinkedTable, ShowsTheRowsOfTheOther) {
    LinkBoth();
    EXPECT_EQ(Dump("SELECT qb_id, unit_name1 FROM taxunits"), "1\tAnimalia  \n20\tAbc\n30\tZyx\n");
    EXPECT_EQ(Dump("SELECT a.unit_name1, b.taxon_author FROM taxunits AS a INNER JOIN authors AS b ON "
                   "a.qb_taxon_author_id = b.qb_taxon_author_id"),
              "Zyx\tGray, 1821\n");
    EXPECT_EQ(Dump("SELECT mine.qb_id FROM qb_taxonomic_units AS mine INNER JOIN taxunits AS theirs ON "
                   "mine.unit_name1 = theirs.unit_name1"),
              "1\n");
}

TEST_F(LinkedTable, ServesTheStoredQueries) {
    LinkBoth();
    EXPECT_EQ(Dump("SELECT unit_name1 FROM [Get NoMatch2] ORDER BY unit_name1"), "Abc\nZyx\n");
}

TEST_F(LinkedTable, IsReadByEveryKindOfRecordset) {
    Link("taxunits", "qb_taxonomic_units", path);
    for (const auto type : {RecordsetType::Dynaset, RecordsetType::Snapshot, RecordsetType::ForwardOnly}) {
        const auto rows = db().OpenRecordset("taxunits", type);
        EXPECT_EQ(testkit::DumpRows(*rows),
                  testkit::DumpRows(*db().CreateSnapshot("SELECT * FROM taxunits")));
    }
    const auto table = db().OpenTable("taxunits");
    EXPECT_EQ(table->Get("unit_name1").AsText(), "Animalia  ");
}

TEST_F(LinkedTable, ReportsItsTarget) {
    Link("taxunits", "qb_taxonomic_units", path);
    const TableDef* link = db().FindTableDef("TAXUNITS");
    ASSERT_NE(link, nullptr);
    EXPECT_EQ(link->SourceTableName, "qb_taxonomic_units");
    EXPECT_EQ(link->Connect, ";DATABASE=" + path + ";");
    EXPECT_EQ(link->fields.size(), db().FindTableDef("qb_taxonomic_units")->fields.size());
    EXPECT_EQ(db().TableDefs().size(), 26U);
}

TEST_F(LinkedTable, LeavesNoTraceInEitherFile) {
    LinkBoth();
    Execute("INSERT INTO journal (qb_id) VALUES (1)");
    EXPECT_EQ(Dump("SELECT qb_id FROM taxunits"), "1\n20\n30\n");
    f.lifecycle.CloseDataSet();
    EXPECT_EQ(testkit::ReadFile(path), bytes);
    StockClient client(f.dir.File("test.mdb"));
    EXPECT_EQ(client.Rows("SELECT count(*) FROM sqlite_master WHERE name IN ('taxunits', 'authors')"), "0\n");
    EXPECT_EQ(client.Rows("SELECT qb_id FROM journal"), "1\n");
}

TEST_F(LinkedTable, IsRemovedOnceDeletedAndReleasesTheOther) {
    LinkBoth();
    Dump("SELECT * FROM taxunits");
    db().DeleteTable("taxunits");
    EXPECT_EQ(NumberOf([&] { Dump("SELECT * FROM taxunits"); }), 3078);
    EXPECT_EQ(Dump("SELECT taxon_author FROM authors"), "Gray, 1821\n");
    db().DeleteTable("authors");
    EXPECT_EQ(db().TableDefs().size(), 25U);
    f.engine.OpenDatabase(path)->Execute("INSERT INTO journal (qb_id) VALUES (20)");
    LinkBoth();
    EXPECT_EQ(Dump("SELECT qb_id FROM taxunits"), "1\n20\n30\n");
}

TEST_F(LinkedTable, CanNotBeWrittenTo) {
    Link("taxunits", "qb_taxonomic_units", path);
    for (const char* sql : {"INSERT INTO taxunits (unit_name1) VALUES ('x')", "DELETE * FROM taxunits",
                            "UPDATE taxunits SET unit_name1 = 'x'"}) {
        EXPECT_NE(NumberOf([&] { Execute(sql); }), 0) << sql;
    }
    EXPECT_EQ(NumberOf([&] { Execute("ALTER TABLE taxunits ADD COLUMN more TEXT(5)"); }), 3251);
    EXPECT_EQ(Dump("SELECT qb_id, unit_name1 FROM taxunits"), "1\tAnimalia  \n20\tAbc\n30\tZyx\n");
}

TEST_F(LinkedTable, MayShowATableOfItsOwnDataSet) {
    Link("taxunits", "qb_taxonomic_units", f.dir.File("test.mdb"));
    Execute("UPDATE qb_taxonomic_units SET unit_name1 = 'Changed' WHERE qb_id = 1");
    EXPECT_EQ(Dump("SELECT unit_name1 FROM taxunits"), "Changed\n");
    db().DeleteTable("taxunits");
    EXPECT_EQ(Dump("SELECT unit_name1 FROM qb_taxonomic_units"), "Changed\n");
}

TEST_F(LinkedTable, RefusesWhatItCanNotLinkTo) {
    const std::string text = f.dir.File("text.mdb");
    testkit::WriteFile(text, "not a DataSet");
    EXPECT_EQ(NumberOf([&] { Link("taxunits", "qb_taxonomic_units", f.dir.File("none.mdb")); }), 3024);
    EXPECT_EQ(NumberOf([&] { Link("taxunits", "qb_taxonomic_units", text); }), 3343);
    EXPECT_EQ(NumberOf([&] { Link("taxunits", "no_table", path); }), 3078);
    EXPECT_EQ(NumberOf([&] { Link("journal", "qb_taxonomic_units", path); }), 3010);
    TableDef odd;
    odd.name = "taxunits";
    odd.SourceTableName = "qb_taxonomic_units";
    odd.Connect = "ODBC;DSN=x";
    EXPECT_EQ(NumberOf([&] { db().AppendTable(odd); }), 3044);
    EXPECT_EQ(db().TableDefs().size(), 25U);
    EXPECT_EQ(Dump("SELECT qb_id FROM qb_taxonomic_units"), "1\n");
}

}  // namespace
}  // namespace quillon::store
