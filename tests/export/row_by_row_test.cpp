// The export in one pass a section against the export row by row: the same lines to the byte, under every
// filter, with and without refused rows.

#include "row_by_row.h"
#include "core/codepage.h"
#include "export_fixture.h"
#include "random_rows.h"

namespace quillon::exporting {
namespace {

class RowByRowTest : public ExportTest {
protected:
    void Compare() { EXPECT_EQ(Cp1252ToUtf8(Tagged()), ExportRowByRow(set.state, set.db())); }
    void CompareWithAndWithoutRefused(std::uint32_t seed) {
        set.state.gRejectedTaxa.clear();
        set.state.gRejectedDocs.clear();
        Compare();
        RejectSome(set.state, seed);
        Compare();
    }
};

class OddRowsTest : public RowByRowTest, public ::testing::WithParamInterface<std::uint32_t> {
protected:
    void SetUp() override {
        RowByRowTest::SetUp();
        FillWithOddRows(set.engine, set.db(), GetParam());
    }
};

TEST_P(OddRowsTest, GiveTheSameLinesUnderNoFilter) {
    CompareWithAndWithoutRefused(GetParam());
}

TEST_P(OddRowsTest, GiveTheSameLinesUnderTheJournal) {
    FilterByJournal();
    CompareWithAndWithoutRefused(GetParam() + 1000);
}

TEST_P(OddRowsTest, GiveTheSameLinesUnderAClause) {
    FilterBy("kingdom_id", "=", "3");
    CompareWithAndWithoutRefused(GetParam() + 2000);
    FilterBy("tsn", ">", "9");
    CompareWithAndWithoutRefused(GetParam() + 3000);
    FilterBy("unit_name1", "Like", "a*");
    CompareWithAndWithoutRefused(GetParam() + 4000);
}

INSTANTIATE_TEST_SUITE_P(Seeds, OddRowsTest, ::testing::Range(std::uint32_t{1}, std::uint32_t{41}));

}  // namespace
}  // namespace quillon::exporting
