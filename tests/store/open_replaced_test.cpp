// A DataSet that was just put in place is opened again, also when another process looks at it first.
#include "child_process.h"
#include "store/lifecycle/file_copy.h"
#include "store_fixture.h"

namespace quillon::store {
namespace {

TEST(OpenReplaced, WaitsForAProcessThatLooksAtTheFile) {
    const testkit::TempDir dir;
    const std::string path = dir.File("test.mdb");
    {
        Engine engine;
        engine.CreateDatabase(path)->Close();
    }
    ChildProcess child([&](ChildProcess& self) {
        Engine engine;
        const DatabaseHandle database = engine.OpenDatabase(path);
        self.Signal();
        self.Await();
        database->Close();
        return 0;
    });
    child.Await();
    Engine engine;
    int turns = 0;
    const DatabaseHandle database = OpenReplaced(engine, path, [&] {
        if (++turns == 1) child.Signal();
    });
    EXPECT_GE(turns, 1);
    EXPECT_TRUE(database->TableDefs().empty());
    EXPECT_EQ(child.Wait(), 0);
}

TEST(OpenReplaced, FailsAtOnceWhereTheFileCannotBeOpened) {
    const testkit::TempDir dir;
    Engine engine;
    EXPECT_THROW(OpenReplaced(engine, dir.File("none.mdb"), [] { FAIL(); }), StoreError);
}

}  // namespace
}  // namespace quillon::store
