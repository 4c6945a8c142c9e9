// A unit of work stores all of what was written in it, or nothing.
#include "store/unit.h"

#include "store_fixture.h"

namespace quillon::store {

class UnitTest : public StoreTest {
protected:
    UnitTest() { AddWords(); }
    std::string Words() { return Dump("SELECT word FROM words ORDER BY id;"); }
};

TEST_F(UnitTest, StoresWhatWasCommitted) {
    {
        Unit unit(f.engine);
        AddWord("one");
        AddWord("two");
        unit.Commit();
    }
    EXPECT_EQ(Words(), "one\ntwo\n");
    EXPECT_FALSE(f.engine.InTransaction());
}

TEST_F(UnitTest, WithoutCommitStoresNothing) {
    {
        const Unit unit(f.engine);
        AddWord("one");
    }
    EXPECT_EQ(Words(), "");
    EXPECT_FALSE(f.engine.InTransaction());
}

TEST_F(UnitTest, DoesNotNest) {
    const Unit unit(f.engine);
    EXPECT_EQ(NumberOf([&] { const Unit inner(f.engine); }), 3034);
    EXPECT_TRUE(f.engine.InTransaction());
}

// The caller closes the DataSet, or rolls back itself, while the unit is open.
TEST_F(UnitTest, EndsQuietlyWhenItsTransactionIsGone) {
    {
        const Unit unit(f.engine);
        AddWord("one");
        f.engine.Rollback();
    }
    {
        const Unit unit(f.engine);
        db().Close();
    }
    EXPECT_FALSE(f.engine.InTransaction());
    Reopen();
    EXPECT_EQ(Words(), "");
}

}  // namespace quillon::store
