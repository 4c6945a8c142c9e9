// Export of as many taxa as a journal holds: rows are looked up for few of them and read whole for many, and
// no number of them is too large for a statement.

#include "export_fixture.h"

namespace quillon::exporting {
namespace {

constexpr int kFirst = 1001, kTaxa = 16384;

class JournalOf : public ExportTest {
protected:
    void SetUp() override {
        ExportTest::SetUp();
        const store::Job job(set.engine);
        AddTaxon(kFirst, "Alpha");
        for (int step = 1; step < kTaxa; step *= 2)
            Run(
                fmt::format("INSERT INTO qb_taxonomic_units (qb_id, unit_name1, usage, parent_qb_id, "
                            "kingdom_id, rank_id) SELECT qb_id + {}, unit_name1, usage, parent_qb_id, "
                            "kingdom_id, rank_id FROM qb_taxonomic_units WHERE qb_id >= {}",
                            step, kFirst));
    }
    void JournalHolds(int taxa) {
        Run("DELETE * FROM journal");
        Run(
            fmt::format("INSERT INTO journal (qb_id) SELECT qb_id FROM qb_taxonomic_units WHERE qb_id "
                        "BETWEEN {} AND {}",
                        kFirst, kFirst + taxa - 1));
    }
};

TEST_F(JournalOf, AnySizeIsExported) {
    set.state.gRecordFilter = "journal";
    ExportOrder list;
    list.kind = ExportKind::List;
    for (const int taxa :
         {0, 1, 999, 1000, 1001, 2997, 2999, 3000, 4001, 4999, 5000, 5001, 6001, 9999, 10000, 10001}) {
        JournalHolds(taxa);
        RunJob();
        EXPECT_EQ(set.state.gExportedCount, 1 + taxa) << "the root and the taxa in the tagged file";
        RunJob(list);
        EXPECT_EQ(set.state.gExportedCount, taxa) << "the partial list";
    }
    EXPECT_EQ(set.prompter.messages, std::vector<std::string>());
}

}  // namespace
}  // namespace quillon::exporting
