// The taxa that were saved since the DataSet was made.
#include "records/journal.h"

#include <gtest/gtest.h>

#include "testkit/testkit.h"

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

}  // namespace
}  // namespace quillon::records
