// quillon-batch as a script meets it: standard output, standard error, exit status.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <set>
#include <string>

#include "batch_fixture.h"
#include "testkit/golden.h"

namespace quillon::batch {

using testkit::ReadFile;
using testkit::WriteFile;

TEST(Batch, ReportsANewDataSet) {
    Batch batch;
    EXPECT_EQ(batch.Run("new t.mdb --kingdom Animalia").status, 0);
    const Ended info = batch.Run("info t.mdb");
    EXPECT_EQ(info.status, 0);
    EXPECT_EQ(info.out, testkit::Golden("batch/ReportsANewDataSet.txt"));
    EXPECT_EQ(info.err, "");
}

TEST(Batch, LeavesOnlyTheDataSetItsLogsAndItsResults) {
    Batch batch;
    WriteFile(batch.dir.File("in.qln"), kTwoTaxa);
    EXPECT_EQ(batch.Run("new t.mdb --kingdom Animalia").status, 0);
    EXPECT_EQ(batch.Run("import t.mdb in.qln").status, 0);
    EXPECT_EQ(batch.Run("validate t.mdb").status, 1);
    EXPECT_EQ(batch.Run("export t.mdb out.qln").status, 0);
    EXPECT_EQ(batch.Files(), (std::set<std::string>{"err.txt", "import.err", "in.qln", "out.qln", "out.txt",
                                                    "t.mdb", "validate.log", "vtime.log"}));
}

TEST(Batch, DoesNotOverwriteWithoutYes) {
    Batch batch;
    WriteFile(batch.dir.File("t.mdb"), "precious");
    const Ended refused = batch.Run("new t.mdb --kingdom Animalia");
    EXPECT_EQ(refused.status, 3);
    EXPECT_EQ(refused.err, "message: The file t.mdb exists; --yes overwrites it.\n");
    EXPECT_EQ(ReadFile(batch.dir.File("t.mdb")), "precious");
    EXPECT_EQ(batch.Run("new t.mdb --kingdom Animalia --yes").status, 0);
}

TEST(Batch, RefusesAnUnknownKingdom) {
    Batch batch;
    const Ended ended = batch.Run("new t.mdb --kingdom Minerals");
    EXPECT_EQ(ended.status, 2);
    EXPECT_FALSE(std::filesystem::exists(batch.dir.File("t.mdb")));
}

TEST(Batch, ImportsAndQueries) {
    Batch batch;
    batch.Run("new t.mdb --kingdom Animalia");
    WriteFile(batch.dir.File("in.qln"), kTwoTaxa);
    const Ended import = batch.Run("import t.mdb in.qln");
    EXPECT_EQ(import.status, 0) << import.err;
    EXPECT_EQ(import.err, "message: Import Complete -- No Errors!\n");
    const Ended query =
        batch.Run("query t.mdb 'select tsn, unit_name1, unit_name2 from qb_taxonomic_units order by tsn'");
    EXPECT_EQ(query.status, 0);
    EXPECT_EQ(query.out, "tsn\tunit_name1\tunit_name2\n100\tAnimalia\t\\N\n101\tChordata\t\\N\n");
}

TEST(Batch, RunsAStoredQueryWithParameters) {
    Batch batch;
    batch.Run("new t.mdb --kingdom Animalia");
    EXPECT_EQ(batch.Run("query t.mdb 'Get Rank ID' RANK=Species").out, "rank_id\n220\n");
    EXPECT_EQ(batch.Run("query t.mdb 'Get Rank ID'").out, "rank_id\n");
    const Ended unknown = batch.Run("query t.mdb 'Get Rank ID' colour=red");
    EXPECT_EQ(unknown.status, 3);
    EXPECT_EQ(unknown.err, "message: The query 'Get Rank ID' has no parameter 'colour'.\n");
}

TEST(Batch, EscapesTabsLineEndsAndBackslashes) {
    Batch batch;
    batch.Run("new t.mdb --kingdom Animalia");
    const Ended query = batch.Run("query t.mdb \"select 'a\\\\b' & chr(9) & chr(10) & chr(13) as x\"");
    EXPECT_EQ(query.out, "x\na\\\\b\\t\\n\\r\n");
}

TEST(Batch, EndsWithOneWhenTheLogHasFindings) {
    Batch batch;
    batch.Run("new t.mdb --kingdom Animalia");
    WriteFile(batch.dir.File("in.qln"), "[ZZ]|1|\r\n");
    std::filesystem::create_directory(batch.dir.File("logs"));
    EXPECT_EQ(batch.Run("import t.mdb in.qln --work-dir logs").status, 1);
    EXPECT_EQ(ReadFile(batch.dir.File("logs/import.err")),
              "Invalid Table Tag in the following line of import file!\r\n     [ZZ]|1|\r\n");
}

TEST(Batch, AsksBeforeImportingIntoAFilledDataSet) {
    Batch batch;
    batch.Run("new t.mdb --kingdom Animalia");
    WriteFile(batch.dir.File("in.qln"), kTwoTaxa);
    batch.Run("import t.mdb in.qln");
    const Ended refused = batch.Run("import t.mdb in.qln");
    EXPECT_EQ(refused.status, 3);
    EXPECT_EQ(refused.err,
              "question: You will be importing into a non-empty DataSet. If the imported data contains a "
              "Kingdom record, "
              "the existing Kingdom record will be deleted  from the DataSet. Continue? [No]\n");
    EXPECT_EQ(batch.Run("import t.mdb in.qln --yes").status, 0);
}

// One row is enough, whatever table it is in.
TEST(Batch, TakesADataSetForFilledThatHoldsMoreThanItsSeedRows) {
    Batch batch;
    batch.Run("new empty.mdb --kingdom Animalia");
    WriteFile(batch.dir.File("in.qln"), kTwoTaxa);
    for (const std::string row :
         {"journal (qb_id) SELECT 1", "qb_vernaculars (qb_id) SELECT 1",
          "qb_publications (publication_id_prefix, qb_publication_id) SELECT 'PUB', 4",
          "qb_taxon_authors_lookup (taxon_author, kingdom_id) SELECT 'Linnaeus', 5",
          "qb_taxonomic_units (qb_id) SELECT 2"}) {
        std::filesystem::copy_file(batch.dir.File("empty.mdb"), batch.dir.File("t.mdb"),
                                   std::filesystem::copy_options::overwrite_existing);
        store::Engine().OpenDatabase(batch.dir.File("t.mdb"))->Execute("INSERT INTO " + row);
        const Ended import = batch.Run("import t.mdb in.qln");
        EXPECT_EQ(import.status, 3) << row;
        EXPECT_EQ(import.err.rfind("question: You will be importing into a non-empty DataSet.", 0), 0U)
            << row;
    }
    EXPECT_EQ(batch.Run("import empty.mdb in.qln").err, "message: Import Complete -- No Errors!\n");
}

TEST(Batch, MakesNoDataSetInPlaceOfAPipeOrAFolder) {
    Batch batch;
    ASSERT_EQ(mkfifo(batch.dir.File("pipe").c_str(), 0600), 0);
    std::filesystem::create_directory(batch.dir.File("folder"));
    for (const std::string name : {"pipe", "folder"}) {
        const Ended ended = batch.Run("new " + name + " --kingdom Animalia --yes");
        EXPECT_EQ(ended.status, 3);
        EXPECT_EQ(ended.err, "message: '" + name + "' is not a file that can be written.\n");
    }
    EXPECT_TRUE(std::filesystem::is_fifo(batch.dir.File("pipe")));
    EXPECT_EQ(batch.Files(), (std::set<std::string>{"err.txt", "folder", "out.txt", "pipe"}));
}

TEST(Batch, ReportsAMissingFileAndAFileThatIsNoDataSet) {
    Batch batch;
    EXPECT_EQ(batch.Run("info none.mdb").err, "message: Could not find the file 'none.mdb'.\n");
    WriteFile(batch.dir.File("text.mdb"), "hello");
    const Ended ended = batch.Run("info text.mdb");
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(ended.err, "message: This is not a DataSet: 'text.mdb'.\n");
    batch.Run("new t.mdb --kingdom Animalia");
    const Ended import = batch.Run("import t.mdb none.qln");
    EXPECT_EQ(import.status, 3);
    EXPECT_EQ(import.err, "message: File none.qln not found!\n");
}

TEST(Batch, EndsWithTwoOnWrongUsageAndPrintsHelp) {
    Batch batch;
    EXPECT_EQ(batch.Run("").status, 2);
    EXPECT_EQ(batch.Run("info").status, 2);
    EXPECT_EQ(batch.Run("fly t.mdb").status, 2);
    EXPECT_EQ(batch.Run("info --colour t.mdb").status, 2);
    EXPECT_EQ(batch.Run("--version").out, "4.0.6\n");
    for (const std::string command : {"new", "import", "query", "info"}) {
        const Ended help = batch.Run(command + " --help");
        EXPECT_EQ(help.status, 0);
        EXPECT_NE(help.out.find("DATASET"), std::string::npos);
    }
}

}  // namespace quillon::batch
