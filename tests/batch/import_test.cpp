// What quillon-batch says of an import, and how it ends.
#include <gtest/gtest.h>

#include <string>

#include "batch_fixture.h"

namespace quillon::batch {
namespace {

using testkit::ReadFile;
using testkit::WriteFile;

class ImportCommand : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(batch.Run("new t.mdb --kingdom Animalia").status, 0); }
    Ended Import(const std::string& text) {
        WriteFile(batch.dir.File("in.qln"), text);
        return batch.Run("import t.mdb in.qln");
    }
    std::string Taxa() {
        return batch.Run("query t.mdb 'SELECT tsn FROM qb_taxonomic_units ORDER BY tsn'").out;
    }

    Batch batch;
};

TEST_F(ImportCommand, ListsWhatCouldNotBeStoredAndEndsWithFindings) {
    const Ended import = Import(std::string(kTwoTaxa) + "[GD]|Africa|101|\r\n[GD]|Africa|101|\r\n");
    EXPECT_EQ(import.status, 1);
    EXPECT_EQ(import.err.rfind("message: Failed ", 0), 0U) << import.err;
    EXPECT_NE(import.err.find(" (line 4: [GD]|Africa|101|)\nmessage: Import Complete -- Errors Occurred.\n"),
              std::string::npos)
        << import.err;
    EXPECT_EQ(ReadFile(batch.dir.File("import.err")), "");
}

TEST_F(ImportCommand, CountsLinesThatWereNotRead) {
    const Ended import = Import(std::string(kTwoTaxa) + "\r\n[GD]|Africa|101|\r\n");
    EXPECT_EQ(import.status, 1);
    EXPECT_EQ(import.err,
              "message: Reading ended at the empty line 3; 1 line after it was not read.\n"
              "message: Import Complete -- Errors Occurred.\n");
}

TEST_F(ImportCommand, RefusesAFileOfAnotherKingdom) {
    const Ended import = Import("[TU]|100||Plantae||||||||accepted|||||||100|||||3|10|No|\r\n");
    EXPECT_EQ(import.status, 3);
    EXPECT_EQ(
        import.err,
        "message: The file holds names of the kingdom Plantae, this DataSet of the kingdom Animalia.\n");
    EXPECT_EQ(Taxa(), "tsn\n202423\n");
}

TEST_F(ImportCommand, ReadsAPipe) {
    WriteFile(batch.dir.File("in.qln"), kTwoTaxa);
    const std::string command = "import t.mdb /dev/stdin";
    const int code = std::system(
        ("cd " + batch.dir.path() + " && cat in.qln | " QUILLON_BATCH " " + command + " 2>err.txt").c_str());
    EXPECT_EQ(WEXITSTATUS(code), 0) << ReadFile(batch.dir.File("err.txt"));
    EXPECT_EQ(Taxa(), "tsn\n100\n101\n");
}

}  // namespace
}  // namespace quillon::batch
