// Every query of the catalogue has a test that shows its result.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "store/queries/catalogue.h"
#include "testkit/testkit.h"

namespace quillon::store {
namespace {

// The names of the catalogue that stand as texts in the tests of the queries.
std::set<std::string> QueriesShown() {
    std::string sources;
    for (const auto& entry : std::filesystem::directory_iterator(QUILLON_SOURCE_DIR "/tests/store")) {
        const std::string name = entry.path().filename();
        if (name.rfind("queries_", 0) == 0 && name != "queries_complete_test.cpp")
            sources += testkit::ReadFile(entry.path());
    }
    std::set<std::string> shown;
    for (const NamedQuery& query : NamedQueryCatalogue())
        if (sources.find("\"" + std::string(query.name) + "\"") != std::string::npos)
            shown.emplace(query.name);
    return shown;
}

TEST(QueryTests, ShowEveryQueryOfTheCatalogue) {
    std::set<std::string> all;
    for (const NamedQuery& query : NamedQueryCatalogue()) all.emplace(query.name);
    EXPECT_EQ(all.size(), 146U);
    EXPECT_EQ(QueriesShown(), all);
}

}  // namespace
}  // namespace quillon::store
