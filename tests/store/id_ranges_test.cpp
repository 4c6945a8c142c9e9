// Ids in a DataSet beyond the 32 bits of their fields, as another program can store them.
#include "stock_client.h"
#include "store/engine/connection.h"
#include "store/engine/native.h"
#include "store/row_stream.h"
#include "store_fixture.h"

namespace quillon::store {
namespace {

class IdRanges : public StoreTest {
protected:
    // Changes the file without its CHECK constraints, and opens it again.
    Failure OpenAfter(const std::string& sql) {
        db().Close();
        EXPECT_EQ(StockClient(f.dir.File("test.mdb")).Rows("PRAGMA ignore_check_constraints = ON; " + sql),
                  "");
        return FailureOf([&] { Reopen(); });
    }
    static Failure OutOfRange(const std::string& field, const std::string& table) {
        return {3049, "The DataSet is damaged: a value is out of range for the field '" + field +
                          "' of the table '" + table + "'."};
    }
};

TEST_F(IdRanges, AParentBeyondThemIsRefused) {
    EXPECT_EQ(OpenAfter("UPDATE qb_taxonomic_units SET parent_qb_id = 4294967297"),
              OutOfRange("parent_qb_id", "qb_taxonomic_units"));
}

TEST_F(IdRanges, AParentBelowThemIsRefused) {
    EXPECT_EQ(OpenAfter("UPDATE qb_taxonomic_units SET parent_qb_id = -4294967295"),
              OutOfRange("parent_qb_id", "qb_taxonomic_units"));
}

TEST_F(IdRanges, AParentThatIsNoNumberIsRefused) {
    EXPECT_EQ(OpenAfter("UPDATE qb_taxonomic_units SET parent_qb_id = 'one'"),
              OutOfRange("parent_qb_id", "qb_taxonomic_units"));
}

TEST_F(IdRanges, BothEndsOfASynonymLinkAreChecked) {
    EXPECT_EQ(OpenAfter("INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) VALUES (4294967297, 1)"),
              OutOfRange("qb_id", "qb_synonym_links"));
    EXPECT_EQ(OpenAfter("UPDATE qb_synonym_links SET qb_id = 1, qb_id_accepted = 4294967297"),
              OutOfRange("qb_id_accepted", "qb_synonym_links"));
    EXPECT_EQ(OpenAfter("UPDATE qb_synonym_links SET qb_id_accepted = 2147483647"), Failure());
}

TEST_F(IdRanges, AnEntryOfTheJournalIsChecked) {
    EXPECT_EQ(OpenAfter("INSERT INTO journal (qb_id) VALUES (4294967297)"), OutOfRange("qb_id", "journal"));
}

// No index begins with the tsn.
TEST_F(IdRanges, AnyOtherFieldIsCheckedWhenItIsRead) {
    Execute("UPDATE qb_taxonomic_units SET tsn = 5;");
    EXPECT_EQ(OpenAfter("UPDATE qb_taxonomic_units SET tsn = 4294967301"), Failure());
    const Failure damaged{3049, "The DataSet is damaged: no field can have the number 4294967301."};
    const auto rows = db().CreateSnapshot("SELECT qb_id, tsn FROM qb_taxonomic_units");
    EXPECT_EQ(rows->Get("qb_id").AsLong(), 1);
    EXPECT_EQ(FailureOf([&] { rows->Get("tsn"); }), damaged);
    RowStream stream(db(), "qb_taxonomic_units", {"qb_id", "tsn"});
    ASSERT_TRUE(stream.Next());
    EXPECT_EQ(stream.Long(0), 1);
    EXPECT_EQ(FailureOf([&] { stream.Long(1); }), damaged);
}

TEST_F(IdRanges, BothEndsAreFoundWithoutReadingTheTable) {
    int checked = 0;
    for (const TableDef& def : db().TableDefs()) {
        const PhysicalTable table = PhysicalTableOf(def);
        for (const FieldDef* field : IndexedNumbers(table)) {
            NativeStatement plan(db().Shared()->Native(), "EXPLAIN QUERY PLAN SELECT max(" + field->name +
                                                              ") FROM " + def.name + " WHERE " + field->name +
                                                              " IS NOT NULL");
            ASSERT_TRUE(plan.Step());
            EXPECT_TRUE(plan.Text(3).starts_with("SEARCH ")) << def.name << "." << field->name;
            ++checked;
        }
    }
    EXPECT_GT(checked, 10);
}

}  // namespace
}  // namespace quillon::store
