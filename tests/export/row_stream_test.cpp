#include "store/row_stream.h"

#include "export_fixture.h"

namespace quillon::exporting {
namespace {

using store::RowStream;
using store::TableRows;

class RowStreams : public ExportTest {
protected:
    static std::string Dump(RowStream& rows, std::size_t columns) {
        std::string text;
        while (rows.Next()) {
            for (std::size_t i = 0; i < columns; ++i)
                text += std::string(rows.Text(i)) + (rows.IsNull(i) ? "-" : "") + " ";
            text += '\n';
        }
        return text;
    }
};

TEST_F(RowStreams, GiveATableInTheByteOrderOfItsKey) {
    Insert("qb_geographic_division", "qb_id, geographic_value, tsn",
           {"2, 'b', 7", "1, 'z', 0", "2, 'C', Null", "2, 'a', 9"});
    RowStream rows(set.db(), "qb_geographic_division", {"geographic_value", "tsn", "geographic_value"});
    EXPECT_EQ(Dump(rows, 3), "z 0 z \nC - C \na 9 a \nb 7 b \n");
}

TEST_F(RowStreams, GiveTheRowsAmongNumbersInTheOrderOfTheKey) {
    Insert("qb_vernaculars", "qb_id, qb_vern_id", {"9, 1", "3, 2", "9, 3", "4, 4"});
    RowStream rows(set.db(), "qb_vernaculars", {"qb_vern_id"}, {TableRows::Order::Key, "qb_id", {9, 4, 100}});
    EXPECT_EQ(Dump(rows, 1), "1 \n3 \n4 \n");
    RowStream none(set.db(), "qb_vernaculars", {"qb_vern_id"}, {TableRows::Order::Key, "qb_id", {}});
    EXPECT_FALSE(none.Next());
}

TEST_F(RowStreams, NullReadsAsZeroAndNoText) {
    AddTaxon(2, "Alpha");
    RowStream rows(
        set.db(),
        "SELECT unit_name2, phylo_sort_sequence, uncertain_parent_ind, tsn FROM qb_taxonomic_units "
        "WHERE qb_id = 2");
    ASSERT_TRUE(rows.Next());
    EXPECT_TRUE(rows.IsNull(0) && rows.IsNull(1));
    EXPECT_EQ(rows.Text(0), "");
    EXPECT_EQ(rows.Long(1), 0);
    EXPECT_EQ(rows.Long(3), 101);
    EXPECT_FALSE(rows.Next());
}

TEST_F(RowStreams, SelectRunsAgainAfterAStreamWasLeft) {
    constexpr std::string_view select = "SELECT qb_id FROM qb_taxonomic_units";
    AddTaxon(2, "Alpha");
    for (int i = 0; i < 3; ++i) {
        RowStream rows(set.db(), select);
        ASSERT_TRUE(rows.Next());
        EXPECT_EQ(rows.Long(0), 1);
    }
}

TEST_F(RowStreams, RefuseWhatThereIsNot) {
    EXPECT_THROW(RowStream(set.db(), "qb_taxonomic_units", {"wings"}), store::StoreError);
    EXPECT_THROW(RowStream(set.db(), "no_table", {"qb_id"}), store::StoreError);
    EXPECT_THROW(RowStream(set.db(), "DELETE * FROM qb_taxonomic_units"), store::StoreError);
    EXPECT_THROW(RowStream(set.db(), "SELECT wings FROM qb_taxonomic_units"), store::StoreError);
}

}  // namespace
}  // namespace quillon::exporting
