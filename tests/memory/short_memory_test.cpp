// Jobs of the store with memory running short at any place: each ends with std::bad_alloc or succeeds, the
// file holds what it held before or all of the job, and nothing is left beside it.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <new>
#include <set>
#include <string>
#include <vector>

#include "failing_memory.h"
#include "store/bulk.h"
#include "store/engine.h"
#include "store/lifecycle/file_copy.h"
#include "store/unit.h"
#include "testkit/testkit.h"

namespace quillon::store {
namespace {

namespace fs = std::filesystem;
using testkit::FailingMemory;

constexpr long kEveryPlace = 60;  // the first allocations fail one by one, the later ones are sampled
constexpr long kSamples = 120;

TableDef Words() {
    TableDef words;
    words.name = "words";
    words.fields = {{"id", FieldType::Long, 0, true, false}, {"word", FieldType::Text, 20, false, false}};
    words.indexes = {{"PrimaryKey", {"id"}, true}, {"word", {"word"}, false}};
    return words;
}

void AddWord(Database& database, const std::string& word) {
    const auto words = database.OpenTable("words");
    words->AddNew();
    words->Set("word", word);
    words->Update();
}

std::string DumpWords(const std::string& path) {
    Engine engine;
    const DatabaseHandle database = engine.OpenDatabase(path);
    if (database->FindTableDef("words") == nullptr) return "no table";
    return testkit::DumpRows(*database->CreateSnapshot("SELECT * FROM words ORDER BY id;"));
}

class ShortMemory : public ::testing::Test {
protected:
    using Work = std::function<void(const std::string& path)>;

    ShortMemory() {
        Engine engine;
        const DatabaseHandle database = engine.CreateDatabase(template_);
        database->AppendTable(Words());
        database->CreateQueryDef("Find Word", "PARAMETERS w Text; SELECT id FROM words WHERE word = w;");
        AddWord(*database, "one");
        AddWord(*database, "two");
        database->Close();
        before_ = testkit::ReadFile(template_);
    }

    // Runs `work` on a fresh copy of the DataSet with one allocation failing, for many places of it.
    void Survives(const Work& work) {
        ResetFile();
        long count = 0;
        {
            const FailingMemory counting(-1);
            work(path_);
            count = FailingMemory::Count();
        }
        const std::string untouched = "1\tone\n2\ttwo\n", done = DumpWords(path_);
        ended_ = 0;
        const long step = std::max(1L, (count - kEveryPlace) / kSamples);
        for (long place = 0; place < count; place += place < kEveryPlace ? 1 : step) {
            ResetFile();
            ASSERT_EQ(Failure(work, place), "") << "allocation " << place << " of " << count;
            ASSERT_EQ(FilesBeside(), (std::set<std::string>{"template.mdb", "test.mdb"}))
                << "allocation " << place << " of " << count;
            const std::string words = DumpWords(path_);
            ASSERT_TRUE(words == untouched || words == done)
                << words << " after allocation " << place << " of " << count;
        }
        EXPECT_GT(ended_, std::min(count, kEveryPlace) / 2) << "of " << count << " allocations";
    }

    testkit::TempDir dir_;
    const std::string template_ = dir_.File("template.mdb"), path_ = dir_.File("test.mdb");

private:
    void ResetFile() {
        for (const std::string& name : FilesBeside())
            if (name != "template.mdb") fs::remove(dir_.File(name));
        testkit::WriteFile(path_, before_);
    }
    // "" for success and for short memory.
    std::string Failure(const Work& work, long place) {
        const FailingMemory failing(place);
        try {
            work(path_);
        } catch (const std::bad_alloc&) {
            ++ended_;
            return "";
        } catch (const StoreError& error) {
            return error.what();
        }
        return "";
    }
    std::set<std::string> FilesBeside() {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(dir_.path())) names.insert(entry.path().filename());
        return names;
    }

    std::string before_;
    long ended_ = 0;  // runs that ended for want of memory
};

TEST_F(ShortMemory, WhileOpening) {
    Survives([](const std::string& path) { Engine().OpenDatabase(path)->Close(); });
}

TEST_F(ShortMemory, WhileReading) {
    Survives([](const std::string& path) {
        Engine engine;
        const DatabaseHandle database = engine.OpenDatabase(path);
        const auto rows = database->OpenQueryDef("Find Word").Set("w", "two").CreateSnapshot();
        if (rows->Get("id").AsLong() != 2) throw StoreError(ErrorNumber::NoCurrentRecord, "wrong row");
        const auto all =
            database->CreateDynaset("SELECT word FROM words WHERE word Like 't*' Or id In (1, 7);");
        all->MoveLast();
        if (all->RecordCount() != 2) throw StoreError(ErrorNumber::NoCurrentRecord, "wrong rows");
    });
}

TEST_F(ShortMemory, WhileStoringAUnit) {
    Survives([](const std::string& path) {
        Engine engine;
        const DatabaseHandle database = engine.OpenDatabase(path);
        const auto open = database->CreateSnapshot("SELECT * FROM words;");
        Unit unit(engine);
        AddWord(*database, "three");
        database->Execute("UPDATE words SET word = 'TWO' WHERE id = 2;");
        const auto words = database->OpenTable("words");
        words->Edit();
        words->Set("word", "ONE");
        words->Update();
        unit.Commit();
    });
}

TEST_F(ShortMemory, WhileRollingBack) {
    Survives([](const std::string& path) {
        Engine engine;
        const DatabaseHandle database = engine.OpenDatabase(path);
        const Unit unit(engine);
        database->Execute("DELETE * FROM words WHERE id = 1;");
        AddWord(*database, "three");
    });
}

TEST_F(ShortMemory, WhileLoadingInBulk) {
    Survives([](const std::string& path) {
        Engine engine;
        const DatabaseHandle database = engine.OpenDatabase(path);
        BulkLoad load(engine, *database, true);
        Unit unit(engine);
        RowWriter writer(*database, "words", {"id", "word"});
        for (const char* word : {"three", "four", "five"})
            writer.Id(load.ReserveAutoNumber("words")).Text(word).Insert();
        unit.Commit();
        load.Finish();
    });
}

TEST_F(ShortMemory, WhileChangingTheSchema) {
    Survives([](const std::string& path) {
        Engine engine;
        const DatabaseHandle database = engine.OpenDatabase(path);
        Unit unit(engine);
        database->Execute("ALTER TABLE words ADD COLUMN note TEXT(5);");
        database->CreateQueryDef("All", "SELECT * FROM words;");
        database->DeleteQueryDef("Find Word");
        database->DeleteTable("words");
        unit.Commit();
    });
}

TEST_F(ShortMemory, WhileCopying) {
    Survives([this](const std::string& path) { CopyDataSetFile(template_, path); });
}

TEST_F(ShortMemory, WhileMakingAFile) {
    Survives([](const std::string& path) {
        struct Remover {
            std::string path;
            ~Remover() { unlink(path.c_str()); }
        } const made{path + "2"};
        Engine engine;
        const DatabaseHandle database = engine.CreateDatabase(made.path);
        database->AppendTable(Words());
        database->Close();
    });
}

}  // namespace
}  // namespace quillon::store
