// The vernaculars of a taxon as the save of a record stores them.
#include "records/vernaculars.h"

#include <gmock/gmock.h>

#include "testkit/testkit.h"

namespace quillon::records {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class VernacularRows : public ::testing::Test {
protected:
    void SetUp() override { set.Make(); }
    RecordStore Records() { return {set.engine, set.db(), set.prompter}; }
    void Run(std::string_view sql) { set.db().Execute(sql); }
    std::string Names() {
        return set.Dump(
            "SELECT qb_id, qb_vern_id, vern_id, tsn, vernacular_name, language, approved_ind, "
            "hex_vernacular_name FROM qb_vernaculars ORDER BY qb_vern_id");
    }
    std::string Tombstones() { return set.Dump("SELECT table_name, pk1, pk2, pk3, pk4 FROM db_tombstone"); }

    testkit::DataSetFixture set;
    const TaxonKey local{2, 0}, published{3, 7001};
};

TEST_F(VernacularRows, AreAddedWithTheirHexadecimalForm) {
    EXPECT_TRUE(AddVernacular(Records(), local, {9, 0, "grand d'\"eau\"|", "French", true}));
    EXPECT_TRUE(AddVernacular(Records(), published, {0, 77, "orca", "", false}));
    EXPECT_EQ(Names(),
              "2\t1\t\\N\t\\N\tgrand d'\"eau\"|\tFrench\tTrue\t6772616E6420642722656175227C\n"
              "3\t2\t77\t7001\torca\t\\N\tFalse\t6F726361\n");
    EXPECT_THAT(set.prompter.messages, IsEmpty());
}

TEST_F(VernacularRows, ThatCannotBeAddedAreReported) {
    EXPECT_FALSE(AddVernacular(Records(), local, {0, 0, "orca", "longer than the field", false}));
    EXPECT_EQ(Names(), "");
    EXPECT_THAT(set.prompter.messages, ElementsAre(StartsWith("Failed ")));
    EXPECT_FALSE(set.engine.InTransaction());
}

TEST_F(VernacularRows, AreRewrittenByTheirId) {
    AddVernacular(Records(), published, {0, 77, "orca", "English", false});
    AddVernacular(Records(), published, {0, 78, "orque", "French", false});
    SaveVernacular(Records(), published, {2, 78, "épaulard", "", true});
    EXPECT_EQ(Names(),
              "3\t1\t77\t7001\torca\tEnglish\tFalse\t6F726361\n"
              "3\t2\t78\t7001\tépaulard\t\\N\tTrue\tE97061756C617264\n");
}

TEST_F(VernacularRows, ThatAreGoneAreAddedAgainAndLoseTheirTombstone) {
    Run("INSERT INTO db_tombstone (table_name, pk1, pk2) VALUES ('vernaculars', '7001', '77')");
    Run("INSERT INTO db_tombstone (table_name, pk1, pk2) VALUES ('vernaculars', '7001', '78')");
    SaveVernacular(Records(), published, {5, 77, "orca", "English", true});
    EXPECT_EQ(Names(), "3\t1\t77\t7001\torca\tEnglish\tTrue\t6F726361\n");
    EXPECT_EQ(Tombstones(), "vernaculars\t7001\t78\t\\N\t\\N\n");
}

TEST_F(VernacularRows, EnteredByHandLeaveTheTombstoneOfOneRemovedBefore) {
    Run("INSERT INTO db_tombstone (table_name, pk1, pk2) VALUES ('vernaculars', '7001', '77')");
    SaveVernacular(Records(), published, {0, 0, "orca", "English", true});
    EXPECT_EQ(Names(), "3\t1\t\\N\t7001\torca\tEnglish\tTrue\t6F726361\n");
    EXPECT_EQ(Tombstones(), "vernaculars\t7001\t77\t\\N\t\\N\n");
}

TEST_F(VernacularRows, GoWithTheirLinksAndLeaveATombstoneWhenPublished) {
    AddVernacular(Records(), published, {0, 77, "orca", "English", false});
    AddVernacular(Records(), published, {0, 0, "orque", "French", false});
    AddVernacular(Records(), local, {0, 79, "beluga", "English", false});
    Run("INSERT INTO qb_experts (expert_id_prefix, qb_expert_id, expert_id, expert) "
        "VALUES ('EXP', 4, 40, 'Smith')");
    for (const char* ids : {"3, 1, 77", "3, 2, Null"}) {
        Run("INSERT INTO qb_vern_ref_links (qb_documentation_id_prefix, qb_documentation_id, "
            "documentation_id, tsn, qb_id, qb_vern_id, vern_id) VALUES ('EXP', 4, 40, 7001, " +
            std::string(ids) + ")");
    }
    EXPECT_EQ(CountVernacularLinks(set.db(), 3, 1), 1U);
    EXPECT_EQ(CountVernacularLinks(set.db(), 2, 1), 0U);
    DeleteVernacular(Records(), published, 1);
    EXPECT_EQ(set.Dump("SELECT qb_vern_id FROM qb_vern_ref_links"), "2\n");
    EXPECT_EQ(set.Dump("SELECT expert FROM qb_experts"), "Smith\n") << "still linked";
    EXPECT_EQ(Tombstones(), "vernaculars\t7001\t77\t\\N\t\\N\nvern_ref_links\tEXP\t40\t7001\t77\n");
    DeleteVernacular(Records(), published, 2);
    DeleteVernacular(Records(), local, 3);
    EXPECT_EQ(Names(), "");
    EXPECT_EQ(set.Dump("SELECT expert FROM qb_experts"), "");
    EXPECT_EQ(Tombstones(),
              "vernaculars\t7001\t77\t\\N\t\\N\n"
              "vern_ref_links\tEXP\t40\t7001\t77\n"
              "experts\tEXP\t40\t\\N\t\\N\n"
              "vern_ref_links\tEXP\t40\t7001\t\\N\n");
}

TEST_F(VernacularRows, WithoutATableAreReportedByEachStep) {
    set.db().DeleteTable("qb_vernaculars");
    EXPECT_FALSE(AddVernacular(Records(), local, {0, 0, "orca", "English", false}));
    SaveVernacular(Records(), local, {1, 0, "orca", "English", false});
    DeleteVernacular(Records(), local, 1);
    EXPECT_THAT(set.prompter.messages,
                ElementsAre(StartsWith("Failed "), StartsWith("Failed "), StartsWith("Failed ")));
}

}  // namespace
}  // namespace quillon::records
