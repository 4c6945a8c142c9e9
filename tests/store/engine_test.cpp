// DataSets as files: handles, second processes, links, and files that are none.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "child_process.h"
#include "stock_client.h"
#include "store/bulk.h"
#include "store_fixture.h"

namespace quillon::store {
namespace {

namespace fs = std::filesystem;

// A DataSet file that is not open anywhere.
class EngineFiles : public ::testing::Test {
protected:
    EngineFiles() {
        f.Make();
        f.db().Close();
        f.state.gDatabase = nullptr;
    }
    // 0 when the file opens and its taxa can be read.
    static int OpenNumber(const std::string& path) {
        Engine engine;
        return NumberOf([&] { engine.OpenDatabase(path)->CreateSnapshot("Get All Taxons"); });
    }
    std::vector<std::string> FilesInFolder() {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(f.dir.path()))
            names.push_back(entry.path().filename());
        return names;
    }
    static std::string Rows(Database& database, std::string_view sql) {
        return testkit::DumpRows(*database.CreateSnapshot(sql));
    }

    testkit::DataSetFixture f;
    const std::string path = f.dir.File("test.mdb");
};

TEST_F(EngineFiles, HandlesOfOneFileAreIndependent) {
    Engine engine;
    const DatabaseHandle first = engine.OpenDatabase(path), second = engine.OpenDatabase(path);
    EXPECT_EQ(first->Name(), path);
    first->Execute("INSERT INTO journal (qb_id) VALUES (1)");
    EXPECT_EQ(Rows(*second, "SELECT qb_id FROM journal"), "1\n");
    first->CreateQueryDef("mine", "SELECT qb_id FROM journal");
    EXPECT_EQ(Rows(*second, "mine"), "1\n");
    first->Close();
    EXPECT_FALSE(first->IsOpen());
    EXPECT_TRUE(second->IsOpen());
    second->Execute("INSERT INTO journal (qb_id) VALUES (2)");
    EXPECT_EQ(Rows(*second, "mine"), "1\n2\n");
}

TEST_F(EngineFiles, LeaveNoOtherFilesWhenClosed) {
    Engine engine;
    const DatabaseHandle database = engine.OpenDatabase(path);
    const auto halfRead = database->CreateSnapshot("Get All Taxons");
    database->Execute("INSERT INTO journal (qb_id) VALUES (1)");
    engine.BeginTrans();
    database->Execute("INSERT INTO journal (qb_id) VALUES (2)");
    engine.CommitTrans();
    database->Close();
    engine.FreeLocks();
    EXPECT_EQ(FilesInFolder(), std::vector<std::string>{"test.mdb"});
}

TEST_F(EngineFiles, AreCreatedOnlyWhereNoneExists) {
    Engine engine;
    const std::string before = testkit::ReadFile(path);
    EXPECT_EQ(FailureOf([&] { engine.CreateDatabase(path); }),
              (Failure{3204, "There is already a file '" + path + "'."}));
    EXPECT_EQ(testkit::ReadFile(path), before);
    EXPECT_EQ(NumberOf([&] { engine.CreateDatabase(f.dir.File("nowhere/new.mdb")); }), 3051);
    const DatabaseHandle made = engine.CreateDatabase(f.dir.File("new.mdb"));
    EXPECT_TRUE(made->TableDefs().empty());
    EXPECT_TRUE(made->QueryDefs().empty());
}

TEST_F(EngineFiles, OpenInOneProcessAtATime) {
    ChildProcess child([&](ChildProcess& self) {
        self.Await();
        const int whileOpen = OpenNumber(path) - 3000;
        self.Signal();
        self.Await();
        return OpenNumber(path) == 0 ? whileOpen : 255;
    });
    Engine engine;
    const DatabaseHandle database = engine.OpenDatabase(path);
    EXPECT_EQ(Rows(*database, "SELECT qb_id FROM qb_taxonomic_units"), "1\n");
    child.Signal();
    child.Await();
    database->Execute("INSERT INTO journal (qb_id) VALUES (1)");
    database->Close();
    child.Signal();
    EXPECT_EQ(child.Wait(), 45);  // 3045, and opened once the file was closed
}

// POSIX drops the locks of a process on a file when any descriptor of it is closed.
TEST_F(EngineFiles, StayLockedWhenAnotherHandleOrARefusedOpeningEnds) {
    ChildProcess child([&](ChildProcess& self) {
        self.Await();
        return OpenNumber(path) - 3000;
    });
    Engine engine;
    const DatabaseHandle database = engine.OpenDatabase(path);
    engine.OpenDatabase(path)->Close();
    EXPECT_EQ(NumberOf([&] { engine.CreateDatabase(path); }), 3204);
    child.Signal();
    EXPECT_EQ(child.Wait(), 45);
}

TEST_F(EngineFiles, AreFreeAndWholeAfterTheirHolderWasKilled) {
    ChildProcess child([&](ChildProcess& self) {
        Engine engine;
        const DatabaseHandle database = engine.OpenDatabase(path);
        database->Execute("INSERT INTO journal (qb_id) VALUES (1)");
        engine.BeginTrans();
        database->Execute("INSERT INTO journal (qb_id) VALUES (2)");
        database->Execute("DELETE * FROM qb_taxonomic_units");
        self.Signal();
        self.Await();
        return 0;
    });
    child.Await();
    EXPECT_EQ(OpenNumber(path), 3045);
    child.Kill();
    Engine engine;
    const DatabaseHandle database = engine.OpenDatabase(path);
    EXPECT_EQ(Rows(*database, "SELECT qb_id FROM journal"), "1\n");
    EXPECT_EQ(Rows(*database, "SELECT qb_id FROM qb_taxonomic_units"), "1\n");
    database->Close();
    EXPECT_EQ(FilesInFolder(), std::vector<std::string>{"test.mdb"});
}

TEST_F(EngineFiles, ALinkStaysALink) {
    const std::string link = f.dir.File("link.mdb");
    fs::create_symlink(path, link);
    Engine engine;
    const DatabaseHandle byLink = engine.OpenDatabase(link), byPath = engine.OpenDatabase(path);
    EXPECT_EQ(byLink->Name(), link);
    byLink->Execute("INSERT INTO journal (qb_id) VALUES (7)");
    EXPECT_EQ(Rows(*byPath, "SELECT qb_id FROM journal"), "7\n");
    byLink->Close();
    byPath->Close();
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(fs::read_symlink(link), path);
    EXPECT_EQ(FilesInFolder().size(), 2U);
    Engine later;
    EXPECT_EQ(Rows(*later.OpenDatabase(path), "SELECT qb_id FROM journal"), "7\n");
    fs::create_symlink(f.dir.File("gone.mdb"), f.dir.File("dangling.mdb"));
    EXPECT_EQ(NumberOf([&] { later.OpenDatabase(f.dir.File("dangling.mdb")); }), 3024);
}

class NoDataSets : public EngineFiles {
protected:
    // Refused with the number, twice, byte for byte as it was, and nothing beside it.
    void ExpectRefused(const std::string& content, const std::vector<int>& numbers) {
        const std::string other = f.dir.File("other.mdb");
        testkit::WriteFile(other, content);
        for (int i = 0; i < 2; ++i) {
            const Failure failure = FailureOf([&] { Engine().OpenDatabase(other); });
            EXPECT_TRUE(std::count(numbers.begin(), numbers.end(), failure.number)) << failure;
            EXPECT_FALSE(failure.description.empty());
            EXPECT_EQ(testkit::ReadFile(other), content);
        }
        EXPECT_EQ(FilesInFolder().size(), 2U);
        fs::remove(other);
    }
};

TEST_F(NoDataSets, AMissingFile) {
    EXPECT_EQ(FailureOf([&] { Engine().OpenDatabase("/nowhere/at all.mdb"); }),
              (Failure{3024, "Could not find the file '/nowhere/at all.mdb'."}));
    EXPECT_EQ(OpenNumber(path + "/below.mdb"), 3024);
    EXPECT_EQ(OpenNumber(""), 3024);
}

TEST_F(NoDataSets, AFolderADeviceAndAPipe) {
    EXPECT_EQ(FailureOf([&] { Engine().OpenDatabase(f.dir.path()); }),
              (Failure{3343, "This is not a DataSet: '" + f.dir.path() + "'."}));
    EXPECT_EQ(OpenNumber("/dev/null"), 3343);
    const std::string pipe = f.dir.File("pipe.mdb");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    // Nothing writes into it: reading would wait for ever.
    ChildProcess child([&](ChildProcess&) {
        alarm(20);
        return OpenNumber(pipe) - 3000;
    });
    EXPECT_EQ(child.Wait(), 343 & 0xff);
}

TEST_F(NoDataSets, AnEmptyFileAndATextFile) {
    ExpectRefused("", {3343});
    ExpectRefused("[TU]1|||Canis\r\n", {3343});
    ExpectRefused(std::string(100000, 'x'), {3343});
    ExpectRefused(std::string("SQLite format 3\0", 16), {3343});
}

TEST_F(NoDataSets, ADatabaseOfAnotherProgram) {
    const std::string plain = f.dir.File("plain.db");
    StockClient(plain).Rows("CREATE TABLE qb_taxonomic_units (qb_id INTEGER PRIMARY KEY)");
    const std::string content = testkit::ReadFile(plain);
    fs::remove(plain);
    ExpectRefused(content, {3343});
}

TEST_F(NoDataSets, ATruncatedDataSet) {
    const std::string whole = testkit::ReadFile(path);
    for (const std::size_t size : {std::size_t{99}, std::size_t{100}, std::size_t{4096}, std::size_t{5000},
                                   whole.size() / 2, whole.size() - 4096, whole.size() - 1})
        ExpectRefused(whole.substr(0, size), {3343, 3049});
}

TEST_F(NoDataSets, ADamagedDataSet) {
    std::string damaged = testkit::ReadFile(path);
    for (std::size_t i = 4096; i < damaged.size(); ++i) damaged[i] = static_cast<char>(i * 31);
    ExpectRefused(damaged, {3049});
}

// Two tables on one page: every page is well formed by itself.
TEST_F(NoDataSets, ADataSetWhosePagesContradictEachOther) {
    StockClient(path).Rows(
        "PRAGMA writable_schema = ON; UPDATE sqlite_master SET rootpage = (SELECT rootpage FROM "
        "sqlite_master WHERE "
        "name = 'journal') WHERE name = 'kingdoms'");
    EXPECT_EQ(FailureOf([&] { Engine().OpenDatabase(path); }),
              (Failure{3049, "The DataSet is damaged and cannot be read."}));
}

// Without the store's own tables it is a DataSet by its header alone.
TEST_F(NoDataSets, ADataSetWithoutTheStoresTables) {
    StockClient(path).Rows("DROP TABLE qln_queries");
    const std::string content = testkit::ReadFile(path);
    EXPECT_NE(OpenNumber(path), 0);
    EXPECT_EQ(testkit::ReadFile(path), content);
}

// Root may write everything, so these run as nobody where the test runs as root.
class ReadOnlyFiles : public EngineFiles {
protected:
    ReadOnlyFiles() { chmod(f.dir.path().c_str(), 0755); }
    ~ReadOnlyFiles() override { chmod(f.dir.path().c_str(), 0755); }
    // The bytes of the file stay, whatever `body` does.
    int AsNobody(const std::function<int()>& body) {
        const std::string before = testkit::ReadFile(path);
        ChildProcess child([&](ChildProcess&) {
            if (geteuid() == 0 && setuid(65534) != 0) return 97;
            return body();
        });
        const int status = child.Wait();
        EXPECT_EQ(testkit::ReadFile(path), before);
        return status;
    }
    // 0 when everything can be read and each way to write is refused as read-only.
    int ReadsAndRefusesWrites() {
        Engine engine;
        const DatabaseHandle database = engine.OpenDatabase(path);
        if (!database->IsReadOnly()) return 8;
        if (Rows(*database, "SELECT qb_id FROM qb_taxonomic_units") != "1\n") return 1;
        const Failure refused{3027, "Can't update. The DataSet is read-only."};
        if (!(FailureOf([&] { database->Execute("DELETE * FROM qb_taxonomic_units"); }) == refused)) return 2;
        if (!(FailureOf([&] { database->CreateQueryDef("q", "SELECT 1"); }) == refused)) return 3;
        if (!(FailureOf([&] { database->Execute("ALTER TABLE journal ADD COLUMN x LONG"); }) == refused))
            return 4;
        if (!(FailureOf([&] { RowWriter(*database, "journal", {"qb_id"}).Id(1).Insert(); }) == refused))
            return 5;
        const auto rows = database->CreateDynaset("qb_taxonomic_units");
        rows->Edit();
        rows->Set("usage", "invalid");
        if (!(FailureOf([&] { rows->Update(); }) == refused)) return 6;
        if (Rows(*database, "SELECT usage FROM qb_taxonomic_units") != "valid\n") return 7;
        database->Close();
        return 0;
    }
};

TEST_F(ReadOnlyFiles, AFileWithoutWritePermissionIsRead) {
    chmod(path.c_str(), 0444);
    EXPECT_EQ(AsNobody([&] { return ReadsAndRefusesWrites(); }), 0);
}

TEST_F(ReadOnlyFiles, AFileInAFolderWithoutWritePermissionIsRead) {
    chmod(path.c_str(), 0666);
    chmod(f.dir.path().c_str(), 0555);
    EXPECT_EQ(AsNobody([&] { return ReadsAndRefusesWrites(); }), 0);
}

TEST_F(ReadOnlyFiles, AFileWithoutReadPermissionIsRefused) {
    chmod(path.c_str(), 0000);
    EXPECT_EQ(AsNobody([&] { return OpenNumber(path) - 3000; }), 51);
    chmod(path.c_str(), 0644);
}

TEST_F(ReadOnlyFiles, NothingIsMadeInAFolderWithoutWritePermission) {
    chmod(f.dir.path().c_str(), 0555);
    EXPECT_EQ(
        AsNobody([&] { return NumberOf([&] { Engine().CreateDatabase(f.dir.File("new.mdb")); }) - 3000; }),
        51);
    EXPECT_EQ(FilesInFolder(), std::vector<std::string>{"test.mdb"});
}

}  // namespace
}  // namespace quillon::store
