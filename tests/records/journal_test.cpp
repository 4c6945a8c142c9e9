// The taxa that were saved since the DataSet was made.
#include "records/journal.h"

#include <gtest/gtest.h>

#include "testkit/testkit.h"
#include "testkit/turn_meter.h"

namespace quillon::records {
namespace {

TEST(Journal, NamesATaxonOnce) {
    testkit::DataSetFixture set;
    set.Make();
    EXPECT_FALSE(IsInJournal(set.db(), 7));
    AddToJournal(set.db(), 7);
    AddToJournal(set.db(), 3);
    AddToJournal(set.db(), 7);
    EXPECT_TRUE(IsInJournal(set.db(), 7));
    EXPECT_EQ(set.Dump("SELECT qb_id FROM journal ORDER BY qb_id"), "3\n7\n");
}

TEST(Journal, CostsTheSameHoweverManyTaxaItNames) {
    testkit::DataSetFixture set;
    set.Make();
    {
        const store::Job job(set.engine);
        for (int qb_id = 1; qb_id <= 3000; ++qb_id) AddToJournal(set.db(), qb_id);
    }
    testkit::TurnMeter meter(set.state);
    meter.Watch();
    AddToJournal(set.db(), 5000);
    EXPECT_LT(meter.Longest(), 500);
    EXPECT_EQ(set.Dump("SELECT count(*) FROM journal"), "3001\n");
}

}  // namespace
}  // namespace quillon::records
