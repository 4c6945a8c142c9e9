// A DataSet that another program moves or replaces while it is open: nothing more is committed, to no file.
#include <filesystem>

#include "store/unit.h"
#include "store_fixture.h"

namespace quillon::store {

namespace fs = std::filesystem;

class MovedFile : public StoreTest {
protected:
    MovedFile() {
        AddWords();
        AddWord("before");
    }
    void Move() { fs::rename(path_, moved_); }
    void Replace() {
        fs::copy_file(path_, moved_);
        fs::rename(moved_, path_);
    }
    std::string WordsIn(const std::string& path) {
        Engine engine;
        return testkit::DumpRows(*engine.OpenDatabase(path)->CreateSnapshot("SELECT word FROM words;"));
    }

    const Failure lost_{
        3043,
        "The DataSet was moved or replaced by another program. What was not saved before that is "
        "lost."};
    const std::string path_ = f.dir.File("test.mdb"), moved_ = f.dir.File("moved.mdb");
};

TEST_F(MovedFile, IsNoticedByTheCommitOfAUnit) {
    {
        Unit unit(f.engine);
        AddWord("within");
        Move();
        EXPECT_EQ(FailureOf([&] { unit.Commit(); }), lost_);
    }
    EXPECT_EQ(FailureOf([&] { AddWord("after"); }), lost_);
    db().Close();
    EXPECT_EQ(WordsIn(moved_), "before\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(f.dir.path()), fs::directory_iterator()), 1);
}

TEST_F(MovedFile, IsNoticedAtTheEndOfAJob) {
    f.engine.BeginJob();
    AddWord("within");
    Replace();
    AddWord("later");
    EXPECT_EQ(FailureOf([&] { f.engine.EndJob(); }), lost_);
    EXPECT_EQ(Dump("SELECT word FROM words;"), "before\n");
    db().Close();
    EXPECT_EQ(WordsIn(path_), "before\n");
}

TEST_F(MovedFile, IsNoticedByAStatementOfItsOwn) {
    Replace();
    EXPECT_EQ(FailureOf([&] { Execute("DELETE * FROM words;"); }), lost_);
    EXPECT_EQ(FailureOf([&] { db().DeleteTable("words"); }), lost_);
    db().Close();
    EXPECT_EQ(WordsIn(path_), "before\n");
}

}  // namespace quillon::store
