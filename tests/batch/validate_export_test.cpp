// validate and export of quillon-batch: what they print and write, and how they end.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "batch_fixture.h"
#include "store/engine.h"

namespace quillon::batch {
namespace {

using testkit::ReadFile;
using testkit::WriteFile;

constexpr const char* kSample = QUILLON_SOURCE_DIR "/samples/cetacea.qln";
constexpr const char* kFindingsOfChordata =
    "ID =  3   Name = Chordata\r\n"
    "     a taxonomic credibility rating is required for all records\r\n"
    "     a taxonomic completeness rating (coverage) is required for ranks of Genus and above\r\n"
    "     a currency rating is required for ranks of Genus and above\r\n"
    "     at least one reference is required\r\n";
constexpr const char* kRootLine = "[TU]2|100||Animalia||||||||valid|||||||100|2||||5|10|No|\r\n";
constexpr const char* kChordataLine = "[TU]3|101||Chordata||||||||valid|||||||100|2||||5|30|No|\r\n";

// The root and Chordata, which has four faults.
class Jobs : public ::testing::Test {
protected:
    void SetUp() override {
        batch.Run("new t.mdb --kingdom Animalia");
        WriteFile(File("in.qln"), kTwoTaxa);
        ASSERT_EQ(batch.Run("import t.mdb in.qln").status, 0);
    }
    std::string File(const char* name) { return batch.dir.File(name); }
    bool Exists(const char* name) { return std::filesystem::exists(File(name)); }
    void Execute(std::string_view sql) {
        store::Engine engine;
        engine.OpenDatabase(File("t.mdb"))->Execute(sql);
    }

    Batch batch;
};

TEST_F(Jobs, ValidationOfTheSampleEndsWithZeroAndAnEmptyLog) {
    batch.Run("new s.mdb --kingdom Animalia");
    ASSERT_EQ(batch.Run(std::string("import s.mdb ") + kSample).status, 0);
    const Ended ended = batch.Run("validate s.mdb");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, "");
    EXPECT_EQ(ended.err, "message: Validation Complete -- No Errors!\n");
    EXPECT_TRUE(Exists("validate.log"));
    EXPECT_EQ(ReadFile(File("validate.log")), "");
}

TEST_F(Jobs, ValidationWithFindingsEndsWithOneAndALogInTheWorkFolder) {
    std::filesystem::create_directory(File("logs"));
    const Ended ended = batch.Run("validate t.mdb --work-dir logs --yes");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, "message: Validation Complete -- Errors Occurred.\n");
    EXPECT_EQ(ReadFile(File("logs/validate.log")), kFindingsOfChordata);
    EXPECT_TRUE(Exists("logs/vtime.log"));
    EXPECT_FALSE(Exists("validate.log"));
}

TEST_F(Jobs, ValidationTakesEveryFormOfAFilter) {
    for (const char* filter : {"none", "'rank_id > 10'", "'unit_name1 Like chor*'", "'usage = valid'"}) {
        EXPECT_EQ(batch.Run(std::string("validate t.mdb --filter ") + filter).status, 1) << filter;
        EXPECT_EQ(ReadFile(File("validate.log")), kFindingsOfChordata) << filter;
    }
    for (const char* filter :
         {"journal", "'rank_id = 10'", "'taxonomic_credibility_rating = KSP standards met'"}) {
        EXPECT_EQ(batch.Run(std::string("validate t.mdb --filter ") + filter).status, 0) << filter;
        EXPECT_EQ(ReadFile(File("validate.log")), "") << filter;
    }
    Execute("INSERT INTO journal (qb_id) VALUES (3)");
    EXPECT_EQ(batch.Run("validate t.mdb --filter journal").status, 1);
}

TEST_F(Jobs, WrongFilterIsRefused) {
    for (const char* job : {"validate t.mdb", "export t.mdb out.qln"}) {
        const std::string words = std::string(job) + " --filter ";
        const Ended column = batch.Run(words + "'wings = 2'");
        EXPECT_EQ(column.status, 3);
        EXPECT_EQ(column.err, "message: The column 'wings' is no field of qb_taxonomic_units.\n");
        EXPECT_EQ(batch.Run(words + "'rank_id is 2'").err,
                  "message: 'is' is no operator: it is one of =, <>, <, >, <=, >=, Like.\n");
        EXPECT_EQ(batch.Run(words + "'usage = \"valid'").err,
                  "message: The value of a filter may not hold a double quote.\n");
        EXPECT_EQ(
            batch.Run(words + "all").err,
            "message: 'all' is no filter: it is none, journal, or a column, an operator and a value.\n");
    }
    EXPECT_FALSE(Exists("validate.log"));
    EXPECT_FALSE(Exists("out.qln"));
}

TEST_F(Jobs, KingdomOfTheDataSetOverridesThePreference) {
    const Ended ended = batch.Run("validate t.mdb --kingdom Plantae");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err,
              "message: Warning:  The 'Preference' kingdom does not match what is in the t.mdb dataset!  "
              "Dataset Kingdom will be used.\nmessage: Validation Complete -- Errors Occurred.\n");
    EXPECT_EQ(ReadFile(File("validate.log")), kFindingsOfChordata);
}

TEST_F(Jobs, WrongArgumentsEndWithTwo) {
    for (const char* words :
         {"validate", "validate t.mdb more", "validate t.mdb --work-dir none", "export t.mdb",
          "export t.mdb out.qln --list colour", "export t.mdb out.qln --list name --online",
          "export t.mdb out.qln --encoding latin1", "export t.mdb out.qln --yes --no"}) {
        const Ended ended = batch.Run(words);
        EXPECT_EQ(ended.status, 2) << words;
        EXPECT_NE(ended.err, "") << words;
    }
    EXPECT_FALSE(Exists("out.qln"));
}

TEST_F(Jobs, ExportWritesTheFileAndReportsTheTotal) {
    const Ended ended = batch.Run("export t.mdb out.qln");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.out, "");
    EXPECT_EQ(ended.err, "message: A Total of 2 Records were Exported.\n");
    EXPECT_EQ(ReadFile(File("out.qln")), std::string(kRootLine) + kChordataLine);
}

TEST_F(Jobs, ExportUnderAFilter) {
    EXPECT_EQ(batch.Run("export t.mdb out.qln --filter 'unit_name1 = Vertebrata'").status, 0);
    EXPECT_EQ(ReadFile(File("out.qln")), kRootLine);
}

TEST_F(Jobs, OnlineExportLeavesOutWhatIsRefusedAndEndsWithOne) {
    const Ended ended = batch.Run("export t.mdb out.qln --online");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, "message: A Total of 1 Records were Exported.\n");
    EXPECT_EQ(ReadFile(File("out.qln")), kRootLine);
    EXPECT_EQ(ReadFile(File("validate.log")), kFindingsOfChordata);
}

TEST_F(Jobs, ListsOfNames) {
    const auto list = [&](const std::string& type) {
        const Ended ended = batch.Run("export t.mdb out.txt --yes --list " + type);
        EXPECT_EQ(ended.status, 0);
        return ReadFile(File("out.txt"));
    };
    EXPECT_EQ(list("name"), "name\r\nAnimalia\r\nChordata\r\n");
    EXPECT_EQ(list("author"), "name|author\r\nAnimalia|\r\nChordata|\r\n");
    EXPECT_EQ(list("rank"), "name|author|rank\r\nAnimalia||Kingdom\r\nChordata||Phylum\r\n");
}

TEST_F(Jobs, ExportDoesNotOverwriteWithoutYes) {
    WriteFile(File("out.qln"), "precious");
    const Ended refused = batch.Run("export t.mdb out.qln");
    EXPECT_EQ(refused.status, 3);
    EXPECT_EQ(refused.err, "question: out.qln Exists.  Overwrite? [No]\n");
    EXPECT_EQ(ReadFile(File("out.qln")), "precious");
    EXPECT_EQ(batch.Run("export t.mdb out.qln --no").status, 3);
    EXPECT_EQ(batch.Run("export t.mdb out.qln --yes").status, 0);
    EXPECT_EQ(ReadFile(File("out.qln")), std::string(kRootLine) + kChordataLine);
}

TEST_F(Jobs, ExportRefusesTheOpenDataSetAsTarget) {
    const Ended ended = batch.Run("export t.mdb t.mdb --yes");
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(ended.err,
              "question: t.mdb Exists.  Overwrite? [Yes]\n"
              "message: 't.mdb' is an open DataSet, and cannot be overwritten.\n");
}

TEST_F(Jobs, TextOutsideTheCodePageIsListedAndRefused) {
    Execute("UPDATE qb_taxonomic_units SET unit_name1 = 'Жук', unit_name2 = 'Ω' WHERE qb_id = 3");
    const Ended refused = batch.Run("export t.mdb out.qln --yes");
    EXPECT_EQ(refused.status, 3);
    EXPECT_EQ(refused.err,
              "unit_name1 of [TU]3: Жук\nunit_name2 of [TU]3: Ω\n"
              "message: CP1252, the code page of the file, cannot hold the 2 values listed above.  Nothing "
              "was written; --encoding utf-8 writes the file as UTF-8 with a byte order mark.\n");
    EXPECT_FALSE(Exists("out.qln"));
    EXPECT_EQ(batch.Run("export t.mdb out.qln --encoding cp1252").status, 3);
    EXPECT_EQ(batch.Run("export t.mdb out.qln --encoding utf-8").status, 0);
    EXPECT_EQ(ReadFile(File("out.qln")), std::string("\xEF\xBB\xBF") + kRootLine +
                                             "[TU]3|101||Жук||Ω||||||valid|||||||100|2||||5|30|No|\r\n");
}

TEST_F(Jobs, ValuesThatBreakTheFormatAreReported) {
    Execute("UPDATE qb_taxonomic_units SET unit_name1 = 'Chor' & chr(124) & 'data' WHERE qb_id = 3");
    const Ended ended = batch.Run("export t.mdb out.qln");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.err,
              "message: A Total of 2 Records were Exported.\n"
              "message: 1 value holds the separator or a line break, and a reader of the file will break the "
              "record there.  The first is unit_name1 of [TU]3: Chor|data\n");
}

TEST_F(Jobs, FileThatCannotBeWrittenEndsWithThree) {
    const Ended ended = batch.Run("export t.mdb none/out.qln");
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(ended.err, "message: Failed Opening 'none/out.qln' failed: No such file or directory.\n");
    EXPECT_EQ(batch.Run("export none.mdb out.qln").err, "message: Could not find the file 'none.mdb'.\n");
    EXPECT_EQ(batch.Run("validate none.mdb").status, 3);
}

TEST_F(Jobs, LogThatCannotBeOpenedEndsWithThree) {
    for (const std::string log : {"validate.log", "vtime.log"}) {
        std::filesystem::create_directory(File("logs"));
        std::filesystem::create_directory(File("logs") + "/" + log);
        for (const char* words :
             {"validate t.mdb --work-dir logs", "export t.mdb out.qln --online --work-dir logs"}) {
            const Ended ended = batch.Run(words);
            EXPECT_EQ(ended.status, 3) << words;
            EXPECT_EQ(ended.err, "message: logs/" + log + " is not an ordinary file.\n") << words;
        }
        std::filesystem::remove_all(File("logs"));
    }
    EXPECT_FALSE(Exists("out.qln"));
}

TEST_F(Jobs, LogThatIsADeviceEndsWithThree) {
    std::filesystem::create_symlink("/dev/full", File("validate.log"));
    for (const char* words : {"validate t.mdb --yes", "export t.mdb out.qln --online"}) {
        const Ended ended = batch.Run(words);
        EXPECT_EQ(ended.status, 3) << words;
        EXPECT_EQ(ended.err, "message: validate.log is not an ordinary file.\n") << words;
    }
    EXPECT_FALSE(Exists("out.qln"));
}

// The log and "vtime.log" beside it stay as the log has them.
TEST_F(Jobs, FindingsAreRowsToo) {
    EXPECT_EQ(batch.Run("validate t.mdb --format tsv").status, 1);
    EXPECT_EQ(ReadFile(File("validate.log")), kFindingsOfChordata);
    const std::string table = ReadFile(File("validate.tsv"));
    EXPECT_EQ(table.substr(0, table.find('\n') + 1), "code\tseverity\tqb_id\tname\tfield\tmessage\n");
    EXPECT_NE(table.find("\nT20\terror\t3\tChordata\ttaxonomic_credibility_rating\ta taxonomic credibility "
                         "rating is required for all records\n"),
              std::string::npos)
        << table;
    EXPECT_EQ(batch.Run("validate t.mdb --format csv").status, 2);
}

// The signal comes when the job has made its log, with thousands of taxa before it.
class Interrupted : public Jobs {
protected:
    void SetUp() override {
        Jobs::SetUp();
        store::Engine engine;
        const store::DatabaseHandle database = engine.OpenDatabase(File("t.mdb"));
        for (int step = 1; step < 16384; step *= 2)
            database->Execute(
                "INSERT INTO qb_taxonomic_units (qb_id, unit_name1, usage, parent_qb_id, kingdom_id, "
                "rank_id) "
                "SELECT qb_id + " +
                std::to_string(step) +
                ", unit_name1, usage, parent_qb_id, kingdom_id, rank_id FROM qb_taxonomic_units "
                "WHERE qb_id >= 3");
    }
    // Starts the job, interrupts it, and gives what it has said.
    Ended Interrupt(std::initializer_list<const char*> words) {
        const pid_t child = fork();
        if (child == 0) Become(words);
        int code = 0;
        while (!Exists("vtime.log") && waitpid(child, &code, WNOHANG) == 0) usleep(1000);
        kill(child, SIGINT);
        waitpid(child, &code, 0);
        return {WIFEXITED(code) ? WEXITSTATUS(code) : -1, ReadFile(File("out.txt")),
                ReadFile(File("err.txt"))};
    }
    // The job comes after the test that watches it.
    [[noreturn]] void Become(std::initializer_list<const char*> words) {
        if (nice(10) == -1) _exit(97);
        std::vector<char*> arguments = {const_cast<char*>("quillon-batch")};
        for (const char* word : words) arguments.push_back(const_cast<char*>(word));
        arguments.push_back(nullptr);
        if (chdir(batch.dir.path().c_str()) != 0 || freopen("out.txt", "w", stdout) == nullptr ||
            freopen("err.txt", "w", stderr) == nullptr)
            _exit(98);
        execv(QUILLON_BATCH, arguments.data());
        _exit(99);
    }
};

TEST_F(Interrupted, ValidationEndsAsByCancel) {
    const Ended ended = Interrupt({"validate", "t.mdb"});
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(ended.err, "") << "a canceled validation says nothing";
    EXPECT_TRUE(ReadFile(File("vtime.log")).find("End Validation: ") != std::string::npos);
}

TEST_F(Interrupted, ExportEndsAsByCancel) {
    const Ended ended = Interrupt({"export", "t.mdb", "out.qln", "--online"});
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(ended.err, "message: Export Canceled!\n");
    EXPECT_FALSE(Exists("out.qln"));
}

}  // namespace
}  // namespace quillon::batch
