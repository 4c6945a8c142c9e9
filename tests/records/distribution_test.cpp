// The regions and jurisdictions of a taxon as the save of a record stores them.
#include "records/distribution.h"

#include <gmock/gmock.h>

#include "testkit/testkit.h"

namespace quillon::records {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class DistributionRows : public ::testing::Test {
protected:
    void SetUp() override { set.Make(); }
    RecordStore Records() { return {set.engine, set.db(), set.prompter}; }
    void Run(std::string_view sql) { set.db().Execute(sql); }
    std::string Regions() {
        return set.Dump("SELECT qb_id, geographic_value, tsn FROM qb_geographic_division");
    }
    std::string Places() {
        return set.Dump("SELECT qb_id, jurisdiction_value, origin, tsn FROM qb_jurisdiction");
    }
    std::string Tombstones() { return set.Dump("SELECT table_name, pk1, pk2 FROM db_tombstone"); }

    testkit::DataSetFixture set;
    const TaxonKey local{2, 0}, published{3, 7001};
};

TEST_F(DistributionRows, AreAddedForANewTaxon) {
    AddDivisions(Records(), local, {"Africa", "Antarctica/Southern Ocean"});
    AddJurisdictions(Records(), local, {{"Alaska", "Native & Extinct"}});
    EXPECT_EQ(Regions(), "2\tAfrica\t\\N\n2\tAntarctica/Southern Ocean\t\\N\n");
    EXPECT_EQ(Places(), "2\tAlaska\tNative & Extinct\t\\N\n");
}

TEST_F(DistributionRows, ReplaceThoseOfTheTaxon) {
    AddDivisions(Records(), local, {"Africa", "Oceania"});
    AddDivisions(Records(), published, {"Africa"});
    AddJurisdictions(Records(), local, {{"Alaska", "Native"}, {"Canada", "Native"}});
    AddJurisdictions(Records(), published, {{"Alaska", "Native"}});
    RewriteDivisions(Records(), local, {"Caribbean", "Oceania"}, {"Africa", "Oceania"});
    RewriteJurisdictions(Records(), local, {{"Alaska", "Introduced"}}, {{"Alaska", "Native"}});
    EXPECT_EQ(Regions(), "2\tCaribbean\t\\N\n2\tOceania\t\\N\n3\tAfrica\t7001\n");
    EXPECT_EQ(Places(), "2\tAlaska\tIntroduced\t\\N\n3\tAlaska\tNative\t7001\n");
    EXPECT_EQ(Tombstones(), "") << "of a name that was never published";
}

TEST_F(DistributionRows, OfAPublishedNameLeaveATombstoneUntilTheyComeBack) {
    RewriteDivisions(Records(), published, {"Africa"}, {"Africa", "Oceania"});
    RewriteJurisdictions(Records(), published, {{"Alaska", "Introduced"}},
                         {{"Alaska", "Native"}, {"Canada", "Native"}});
    EXPECT_EQ(Tombstones(), "geographic_division\t7001\tOceania\njurisdiction\t7001\tCanada\n");
    RewriteDivisions(Records(), published, {"Oceania"}, {"Africa"});
    RewriteJurisdictions(Records(), published, {{"Canada", "Native"}}, {{"Alaska", "Introduced"}});
    EXPECT_EQ(Tombstones(), "geographic_division\t7001\tAfrica\njurisdiction\t7001\tAlaska\n");
    EXPECT_EQ(Regions(), "3\tOceania\t7001\n");
    EXPECT_EQ(Places(), "3\tCanada\tNative\t7001\n");
}

TEST_F(DistributionRows, GoOnAfterOneThatFailed) {
    const std::string tooLong(41, 'x');
    AddDivisions(Records(), local, {tooLong, "Africa"});
    RewriteJurisdictions(Records(), published, {{tooLong, "Native"}, {"Alaska", "Native"}}, {});
    EXPECT_EQ(Regions(), "2\tAfrica\t\\N\n");
    EXPECT_EQ(Places(), "3\tAlaska\tNative\t7001\n");
    EXPECT_THAT(set.prompter.messages, ElementsAre(StartsWith("Failed "), StartsWith("Failed ")));
}

TEST_F(DistributionRows, WithoutChangesLeaveNothing) {
    RewriteDivisions(Records(), published, {}, {});
    RewriteJurisdictions(Records(), published, {}, {});
    EXPECT_EQ(Regions() + Places() + Tombstones(), "");
    EXPECT_THAT(set.prompter.messages, IsEmpty());
}

}  // namespace
}  // namespace quillon::records
