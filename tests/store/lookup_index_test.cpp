// The store's own indexes for look-ups: who links a document is found along one, whatever other prefixes have
// the same number; an import renews those of earlier versions of the program.
#include <fmt/format.h>

#include "store/bulk.h"
#include "store/engine/connection.h"
#include "store_fixture.h"

namespace quillon::store {
namespace {

constexpr const char* kEarlier =
    "DROP INDEX [qb_reference_links~document]; "
    "CREATE INDEX [qb_reference_links~document] ON qb_reference_links (qb_documentation_id)";

class LookupIndexes : public testing::Test {
protected:
    LookupIndexes() { f.Make("Animalia"); }
    sqlite3* Native() { return f.db().Shared()->Native(); }
    // How SQLite looks for the links of a document.
    std::string Plan(const std::string& table) {
        NativeStatement plan(Native(), "EXPLAIN QUERY PLAN SELECT qb_id FROM " + table +
                                           " WHERE qb_documentation_id_prefix Is Not Null AND "
                                           "qb_documentation_id_prefix = ?1 COLLATE QLN AND "
                                           "qb_documentation_id = ?2");
        return plan.Step() ? std::string(plan.Text(3)) : std::string();
    }
    static std::string ByBoth(const std::string& table) {
        return fmt::format(
            "SEARCH {0} USING COVERING INDEX {0}~document (qb_documentation_id_prefix=? AND "
            "qb_documentation_id=?)",
            table);
    }

    testkit::DataSetFixture f;
};

TEST_F(LookupIndexes, FindTheLinksOfADocumentByPrefixAndNumber) {
    for (const std::string table : {"qb_reference_links", "qb_vern_ref_links"})
        EXPECT_EQ(Plan(table), ByBoth(table));
}

TEST_F(LookupIndexes, OfAnEarlierVersionServeUntilTheNextImportRenewsThem) {
    ExecNative(Native(), kEarlier);
    ExecNative(Native(), "DROP INDEX [qb_vern_ref_links~document]");
    const std::string path = f.state.gDataSetPath;
    f.lifecycle.OpenDataSetFile(path);
    EXPECT_EQ(
        Plan("qb_reference_links"),
        "SEARCH qb_reference_links USING COVERING INDEX qb_reference_links~document (qb_documentation_id=?)");
    f.db().Execute(
        "INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id) "
        "VALUES (1, 'PUB', 7)");
    BulkLoad(f.engine, f.db(), false).Finish();
    for (const std::string table : {"qb_reference_links", "qb_vern_ref_links"})
        EXPECT_EQ(Plan(table), ByBoth(table));
    EXPECT_EQ(f.Dump("SELECT qb_id FROM qb_reference_links WHERE qb_documentation_id_prefix = 'pub' AND "
                     "qb_documentation_id = 7"),
              "1\n");
}

}  // namespace
}  // namespace quillon::store
