#include "store/write_count.h"

#include <gtest/gtest.h>

#include "testkit/testkit.h"

namespace quillon::store {
namespace {

TEST(WriteCount, GrowsWithEveryRowThatIsWrittenAndWithNothingElse) {
    testkit::DataSetFixture data;
    data.Make("Animalia");
    const std::int64_t before = WriteCount(data.db());
    data.Dump("SELECT * FROM qb_comments");
    EXPECT_EQ(WriteCount(data.db()), before);
    data.db().Execute("INSERT INTO qb_comments (commentator) VALUES ('Smith')");
    const std::int64_t added = WriteCount(data.db());
    EXPECT_GT(added, before);
    data.db().Execute("UPDATE qb_comments SET commentator = 'Jones'");
    const std::int64_t changed = WriteCount(data.db());
    EXPECT_GT(changed, added);
    data.db().Execute("DELETE * FROM qb_comments");
    EXPECT_GT(WriteCount(data.db()), changed);
}

TEST(WriteCount, CountsWhatAnotherHandleOfTheFileWrites) {
    testkit::DataSetFixture data;
    data.Make("Animalia");
    const auto other = data.engine.OpenDatabase(data.state.gDataSetPath);
    const std::int64_t before = WriteCount(data.db());
    other->Execute("INSERT INTO qb_comments (commentator) VALUES ('Smith')");
    EXPECT_GT(WriteCount(data.db()), before);
}

}  // namespace
}  // namespace quillon::store
