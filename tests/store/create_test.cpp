// DataSets as files: created, seeded, and distinguished from used ones.
#include "store/lifecycle/create.h"

#include <gtest/gtest.h>

#include "testkit/testkit.h"

namespace quillon::store {

using testkit::DataSetFixture;

TEST(CreateDataSet, SeedingTwiceFailsOnTheKeys) {
    DataSetFixture f;
    f.Make();
    try {
        SeedDataSet(f.engine, f.db(), "Animalia", "4.0.6");
        FAIL() << "a second seeding passed";
    } catch (const StoreError& error) {
        EXPECT_EQ(error.Number(), 3022);
    }
    EXPECT_EQ(f.Dump("SELECT count(*) FROM taxonomic_unit_types"), "21\n");
}

TEST(CreateDataSet, HoldsOnlySeedRowsUntilSomethingIsAdded) {
    for (const std::string added : {
             "INSERT INTO qb_taxonomic_units (qb_id, unit_name1) SELECT 2, 'Aus'",
             "INSERT INTO qb_geographic_division (qb_id, geographic_value) SELECT 1, 'Africa'",
             "INSERT INTO qb_experts (expert_id_prefix, qb_expert_id) SELECT 'EXP', 5",
         }) {
        DataSetFixture f;
        f.Make();
        EXPECT_TRUE(HoldsOnlySeedRows(f.db()));
        f.db().Execute(added);
        EXPECT_FALSE(HoldsOnlySeedRows(f.db())) << added;
    }
}

}  // namespace quillon::store
