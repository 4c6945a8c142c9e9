// Of any DataSet, validating twice gives the same log, and the log does not depend on the order in which the
// rows came into the file.

#include <algorithm>
#include <vector>

#include "export_fixture.h"
#include "random_rows.h"
#include "validation/validate_data_set.h"

namespace quillon::exporting {
namespace {

class RandomSets : public ::testing::TestWithParam<std::uint32_t> {
protected:
    void SetUp() override {
        for (testkit::DataSetFixture* set : {&one, &other}) set->Make("Animalia");
        one.db().Execute("DELETE * FROM qb_taxonomic_units");
        for (const store::TableDef& table : one.db().TableDefs())
            if (IsEmpty(one, table.name)) filled.push_back(table);
    }
    static bool IsEmpty(testkit::DataSetFixture& set, const std::string& table) {
        return set.db().CreateSnapshot(fmt::format("SELECT * FROM {}", table))->Eof();
    }
    void Empty(testkit::DataSetFixture& set) {
        for (const store::TableDef& table : filled)
            set.db().Execute(fmt::format("DELETE * FROM {}", table.name));
    }
    void Fill(std::uint32_t seed) {
        Empty(one);
        one.db().Execute(
            "INSERT INTO qb_taxonomic_units (qb_id, tsn, unit_name1, usage, kingdom_id, rank_id) "
            "VALUES (1, 100, 'Animalia', 'valid', 5, 10)");
        FillWithOddRows(one.engine, one.db(), seed);
    }

    // Writes the rows of a table into the other DataSet, the last one first.
    void CopyBackwards(const store::TableDef& table) {
        std::vector<std::vector<Value>> rows;
        for (const auto from = one.db().CreateSnapshot(fmt::format("SELECT * FROM {}", table.name));
             !from->Eof(); from->MoveNext()) {
            rows.emplace_back();
            for (const store::FieldDef& field : table.fields) rows.back().push_back(from->Get(field.name));
        }
        std::reverse(rows.begin(), rows.end());
        const auto into = other.db().OpenTable(table.name);
        for (const auto& row : rows) {
            into->AddNew();
            for (std::size_t i = 0; i < row.size(); ++i)
                if (!row[i].IsNull()) into->Set(table.fields[i].name, row[i]);
            into->Update();
        }
    }
    void CopyBackwards() {
        Empty(other);
        store::Job job(other.engine);
        for (const store::TableDef& table : filled) CopyBackwards(table);
        job.End();
    }
    std::string Log(testkit::DataSetFixture& set, std::string_view filter) {
        set.state.gRecordFilter = filter;
        return testkit::ReadFile(
            validation::ValidateDataSet(set.state, set.engine,
                                        {set.prompter, pump, clock, [](double) {}, set.dir.path(), [] {}})
                .logPath);
    }

    testkit::DataSetFixture one, other;
    testkit::NullPump pump;
    testkit::FixedClock clock;
    std::vector<store::TableDef> filled;  // the tables that a new DataSet has no rows in
};

// Twenty seeds from the one given on.
TEST_P(RandomSets, HaveOneLog) {
    for (std::uint32_t seed = GetParam(); seed < GetParam() + 20; ++seed) {
        Fill(seed);
        CopyBackwards();
        for (const std::string& filter :
             {std::string("none"), std::string("journal"), selection::ColumnClause("usage", "=", "valid")}) {
            const std::string log = Log(one, filter);
            if (filter == "none") {
                EXPECT_NE(log, "") << "seed " << seed;
                EXPECT_EQ(Log(one, filter), log) << "seed " << seed;
            }
            EXPECT_EQ(Log(other, filter), log) << "seed " << seed;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomSets,
                         ::testing::Range(std::uint32_t{1}, std::uint32_t{201}, std::uint32_t{20}));

}  // namespace
}  // namespace quillon::exporting
