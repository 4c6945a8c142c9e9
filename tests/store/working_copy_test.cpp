// Jobs on a copy of the open DataSet: all of it or nothing.
#include "store/lifecycle/working_copy.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "store_fixture.h"
#include "testkit/limits.h"

namespace quillon::store {
namespace {

namespace fs = std::filesystem;

class WorkingCopies : public StoreTest {
protected:
    static void AddTaxon(Database& database) {
        database.Execute("INSERT INTO qb_taxonomic_units (qb_id, unit_name1) SELECT 2, 'Aus'");
    }
    std::string TaxaOf(Database& database) {
        return testkit::DumpRows(*database.CreateSnapshot("SELECT qb_id FROM qb_taxonomic_units"));
    }
    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(f.dir.path()))
            names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }
    std::string TaxaInTheFile() {
        db().Close();
        Reopen();
        return TaxaOf(db());
    }
    const std::string path = f.dir.File("test.mdb");
    static bool GoOn() { return true; }
};

using Names = std::vector<std::string>;

TEST_F(WorkingCopies, TakeThePlaceOfTheDataSetWhenItIsReplaced) {
    AddTaxon(db());
    db().Execute("DELETE * FROM qb_taxonomic_units WHERE qb_id = 2");
    chmod(path.c_str(), 0640);
    {
        WorkingCopy copy(f.engine, db(), GoOn);
        AddTaxon(copy.Db());
        EXPECT_EQ(TaxaOf(copy.Db()), "1\n2\n");
        EXPECT_EQ(TaxaOf(db()), "1\n");
        copy.Replace(f.state.gDatabase);
        EXPECT_EQ(TaxaOf(db()), "1\n2\n");
    }
    EXPECT_EQ(TaxaInTheFile(), "1\n2\n");
    db().Close();
    EXPECT_EQ(Files(), Names{"test.mdb"});
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
}

TEST_F(WorkingCopies, LeaveTheDataSetAsItWasWhenItIsNot) {
    db().Close();
    const std::string before = testkit::ReadFile(path);
    Reopen();
    {
        WorkingCopy copy(f.engine, db(), GoOn);
        AddTaxon(copy.Db());
    }
    db().Close();
    EXPECT_EQ(testkit::ReadFile(path), before);
    EXPECT_EQ(Files(), Names{"test.mdb"});
}

TEST_F(WorkingCopies, AreCanceledAtEachStage) {
    EXPECT_THROW(WorkingCopy(f.engine, db(), [] { return false; }), StoreError);
    {
        bool goOn = true;
        WorkingCopy copy(f.engine, db(), [&] { return goOn; });
        AddTaxon(copy.Db());
        goOn = false;
        EXPECT_THROW(copy.Replace(f.state.gDatabase), StoreError);
    }
    EXPECT_EQ(TaxaInTheFile(), "1\n");
    db().Close();
    EXPECT_EQ(Files(), Names{"test.mdb"});
}

TEST_F(WorkingCopies, KeepTheDataSetLocked) {
    Engine another;
    WorkingCopy copy(f.engine, db(), GoOn);
    EXPECT_EQ(NumberOf([&] { another.OpenDatabase(path); }), 3045);
    copy.Replace(f.state.gDatabase);
    EXPECT_EQ(NumberOf([&] { another.OpenDatabase(path); }), 3045);
}

TEST_F(WorkingCopies, DoNotReplaceAnotherFile) {
    WorkingCopy copy(f.engine, db(), GoOn);
    fs::rename(path, f.dir.File("moved.mdb"));
    testkit::WriteFile(path, "another file");
    EXPECT_EQ(FailureOf([&] { copy.Replace(f.state.gDatabase); }),
              (Failure{3024, "The DataSet '" + fs::canonical(path).string() +
                                 "' was moved or replaced while it was open."}));
    EXPECT_EQ(testkit::ReadFile(path), "another file");
    EXPECT_EQ(FailureOf([&] { const WorkingCopy second(f.engine, db(), GoOn); }).number, 3024);
}

TEST_F(WorkingCopies, DoNotReplaceBesideALogOfAnotherProgram) {
    WorkingCopy copy(f.engine, db(), GoOn);
    AddTaxon(copy.Db());
    testkit::WriteFile(path + "-wal", "another's");
    EXPECT_EQ(FailureOf([&] { copy.Replace(f.state.gDatabase); }).number, 3204);
    EXPECT_EQ(testkit::ReadFile(path + "-wal"), "another's");
}

TEST_F(WorkingCopies, DoNotReplaceBesideAForeignJournal) {
    WorkingCopy copy(f.engine, db(), GoOn);
    testkit::WriteFile(path + "-journal", "another's");
    EXPECT_EQ(FailureOf([&] { copy.Replace(f.state.gDatabase); }),
              (Failure{3204, "The file '" + fs::canonical(path).string() +
                                 "-journal' of another program is in the way."}));
}

TEST_F(WorkingCopies, OfAReadOnlyDataSetAreRefused) {
    db().Close();
    const testkit::ReadOnlyFolder folder(f.dir.path());
    f.state.gDatabase = f.engine.OpenDatabase(path);
    EXPECT_EQ(FailureOf([&] { const WorkingCopy copy(f.engine, db(), GoOn); }),
              (Failure{3027, "Can't update. The DataSet is read-only."}));
}

TEST_F(WorkingCopies, OfAKilledRunAreRemovedByTheNext) {
    testkit::WriteFile(path + "~new-aaaabbbb22", "SQLite format 3" + std::string(85, '\0'));
    testkit::WriteFile(path + "~new-ccccdddd22", "some other text");
    { const WorkingCopy copy(f.engine, db(), GoOn); }
    db().Close();
    EXPECT_EQ(Files(), (Names{"test.mdb", "test.mdb~new-ccccdddd22"}));
}

}  // namespace
}  // namespace quillon::store
