// A command is one durable commit, and each of its units can be undone alone.
#include "store/command.h"

#include "store/unit.h"
#include "store_fixture.h"

namespace quillon::store {

class CommandTest : public StoreTest {
protected:
    CommandTest() { AddWords(); }
    std::string Words() { return Dump("SELECT word FROM words ORDER BY id;"); }
};

TEST_F(CommandTest, StoresItsUnitsTogether) {
    {
        Command command(f.engine);
        Unit first(f.engine);
        AddWord("one");
        first.Commit();
        {
            const Unit lost(f.engine);
            AddWord("two");
        }
        AddWord("three");
        command.Commit();
    }
    EXPECT_FALSE(f.engine.IsCommandRunning());
    Reopen();
    EXPECT_EQ(Words(), "one\nthree\n");
}

TEST_F(CommandTest, WithoutCommitStoresNothing) {
    AddWord("before");
    {
        const Command command(f.engine);
        Unit unit(f.engine);
        AddWord("one");
        unit.Commit();
        AddWord("two");
        EXPECT_EQ(Words(), "before\none\ntwo\n");
    }
    EXPECT_EQ(Words(), "before\n");
    EXPECT_FALSE(f.engine.IsJobRunning());
    AddWord("after");
    Reopen();
    EXPECT_EQ(Words(), "before\nafter\n");
}

TEST_F(CommandTest, TakesAnOpenUnitWithIt) {
    {
        const Command command(f.engine);
        f.engine.BeginTrans();
        AddWord("one");
    }
    EXPECT_FALSE(f.engine.InTransaction());
    EXPECT_EQ(Words(), "");
}

TEST_F(CommandTest, DoesNotNest) {
    const Command command(f.engine);
    EXPECT_EQ(NumberOf([&] { const Command inner(f.engine); }), 3034);
    EXPECT_TRUE(f.engine.IsCommandRunning());
}

TEST_F(CommandTest, NumbersRiseAfterOneThatWasAbandoned) {
    {
        const Command command(f.engine);
        AddWord("one");
    }
    {
        Command command(f.engine);
        AddWord("two");
        command.Commit();
    }
    Reopen();
    AddWord("three");
    EXPECT_EQ(Words(), "two\nthree\n");
}

}  // namespace quillon::store
