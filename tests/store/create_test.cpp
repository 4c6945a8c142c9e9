// DataSets as files: created, seeded, and distinguished from used ones.
#include "store/lifecycle/create.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <set>

#include "testkit/testkit.h"

namespace quillon::store {

using testkit::DataSetFixture;

namespace {

std::set<std::string> NamesIn(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.insert(entry.path().filename());
    return names;
}

}  // namespace

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

// The first time, a step in the middle, and the last time that it is asked.
TEST(CreateDataSet, LeavesEverythingAsItWasWhenItIsCanceled) {
    const testkit::TempDir dir;
    Engine engine;
    const auto make = [&](const std::string& name, const GoOn& goOn) {
        MakeDataSetFile(engine, dir.File(name), "Animalia", "4.0.6", goOn);
    };
    int asked = 0;
    make("whole.mdb", [&] { return ++asked > 0; });
    EXPECT_GT(asked, 100);
    testkit::WriteFile(dir.File("old.mdb"), "old");
    for (const int last : {1, asked / 2, asked}) {
        for (const std::string name : {"new.mdb", "old.mdb"}) {
            int count = 0;
            EXPECT_THROW(make(name, [&] { return ++count < last; }), StoreError);
            EXPECT_EQ(count, last);
        }
        EXPECT_EQ(testkit::ReadFile(dir.File("old.mdb")), "old");
        EXPECT_EQ(NamesIn(dir.path()), (std::set<std::string>{"old.mdb", "whole.mdb"}));
    }
}

TEST(CreateDataSet, RefusesAPipeAndAFolder) {
    const testkit::TempDir dir;
    Engine engine;
    ASSERT_EQ(mkfifo(dir.File("pipe").c_str(), 0600), 0);
    std::filesystem::create_directory(dir.File("folder"));
    std::filesystem::create_symlink("pipe", dir.File("link"));
    for (const std::string name : {"pipe", "folder", "link"}) {
        try {
            MakeDataSetFile(engine, dir.File(name), "Animalia", "4.0.6");
            FAIL() << name << " was replaced";
        } catch (const StoreError& error) {
            EXPECT_EQ(error.Description(), "'" + dir.File(name) + "' is not a file that can be written.");
        }
    }
    EXPECT_TRUE(std::filesystem::is_fifo(dir.File("pipe")));
    EXPECT_TRUE(std::filesystem::is_symlink(dir.File("link")));
    EXPECT_EQ(NamesIn(dir.path()), (std::set<std::string>{"folder", "link", "pipe"}));
}

}  // namespace quillon::store
