// Results that cannot be delivered, and jobs that a signal ends.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include "batch_fixture.h"

namespace quillon::batch {
namespace {

// Whether the process has a handler for SIGINT by now.
bool HearsSigint(pid_t process) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string word; status >> word;) {
        if (word != "SigCgt:") continue;
        status >> word;
        return (std::stoull(word, nullptr, 16) >> (SIGINT - 1) & 1) != 0;
    }
    return false;
}

TEST(BatchOutput, FailsWhenTheResultsCannotBeWritten) {
    Batch batch;
    ASSERT_EQ(batch.Run("new t.mdb --kingdom Animalia").status, 0);
    for (const std::string words : {"query t.mdb 'Get Animal Data'", "info t.mdb"}) {
        const Ended ended = batch.Run(words, "/dev/full");
        EXPECT_EQ(ended.status, 3) << words;
        EXPECT_EQ(ended.err,
                  "message: The job failed: Standard output cannot be written: No space left on device.\n");
    }
}

TEST(BatchOutput, FailsWhenHelpOrVersionCannotBeWritten) {
    const Batch batch;
    for (const std::string words : {"--help", "--version", "new --help"}) {
        const Ended ended = batch.Run(words, "/dev/full");
        EXPECT_EQ(ended.status, 3) << words;
        EXPECT_EQ(ended.err,
                  "message: The job failed: Standard output cannot be written: No space left on device.\n");
    }
    EXPECT_EQ(batch.Run("--version").status, 0);
}

TEST(BatchOutput, FailsWhenNobodyReadsItsPipe) {
    Batch batch;
    ASSERT_EQ(batch.Run("new t.mdb --kingdom Animalia").status, 0);
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        std::filesystem::current_path(batch.dir.path());
        freopen("err.txt", "w", stderr);
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
        close(ends[1]);
        signal(SIGPIPE, SIG_DFL);
        execl(QUILLON_BATCH, "quillon-batch", "info", "t.mdb", nullptr);
        _exit(9);
    }
    close(ends[0]);
    close(ends[1]);
    int code = 0;
    waitpid(child, &code, 0);
    ASSERT_TRUE(WIFEXITED(code));
    EXPECT_EQ(WEXITSTATUS(code), 3);
    EXPECT_EQ(testkit::ReadFile(batch.dir.File("err.txt")),
              "message: The job failed: Standard output cannot be written: Broken pipe.\n");
}

TEST(BatchOutput, EndsAStatementThatRunsWhenInterrupted) {
    Batch batch;
    ASSERT_EQ(batch.Run("new t.mdb --kingdom Animalia").status, 0);
    const pid_t child = fork();
    if (child == 0) {
        std::filesystem::current_path(batch.dir.path());
        freopen("out.txt", "w", stdout);
        freopen("err.txt", "w", stderr);
        // Some 10^13 rows: it never ends by itself.
        execl(QUILLON_BATCH, "quillon-batch", "query", "t.mdb",
              "select count(*) from taxonomic_unit_types as a, taxonomic_unit_types as b, "
              "taxonomic_unit_types as c, "
              "taxonomic_unit_types as d, taxonomic_unit_types as e, taxonomic_unit_types as f, "
              "taxonomic_unit_types as g, taxonomic_unit_types as h, taxonomic_unit_types as i, "
              "taxonomic_unit_types as j",
              nullptr);
        _exit(9);
    }
    while (!HearsSigint(child)) usleep(200);
    kill(child, SIGINT);
    int code = 0;
    waitpid(child, &code, 0);
    ASSERT_TRUE(WIFEXITED(code));
    EXPECT_EQ(WEXITSTATUS(code), 3);
    EXPECT_EQ(testkit::ReadFile(batch.dir.File("out.txt")), "");
}

TEST(BatchOutput, AnImportThatWaitsForItsPipeEndsWhenInterrupted) {
    Batch batch;
    ASSERT_EQ(batch.Run("new t.mdb --kingdom Animalia").status, 0);
    const std::string before = testkit::ReadFile(batch.dir.File("t.mdb"));
    ASSERT_EQ(mkfifo(batch.dir.File("pipe").c_str(), 0600), 0);
    const pid_t child = fork();
    if (child == 0) {
        std::filesystem::current_path(batch.dir.path());
        freopen("err.txt", "w", stderr);
        execl(QUILLON_BATCH, "quillon-batch", "import", "t.mdb", "pipe", nullptr);
        _exit(9);
    }
    // Both ends are open: nothing more comes, and the end of the file neither.
    const int pipe = open(batch.dir.File("pipe").c_str(), O_RDWR);
    ASSERT_EQ(write(pipe, kTwoTaxa, std::strlen(kTwoTaxa)), static_cast<ssize_t>(std::strlen(kTwoTaxa)));
    while (!HearsSigint(child)) usleep(200);
    kill(child, SIGINT);
    int code = 0;
    waitpid(child, &code, 0);
    close(pipe);
    ASSERT_TRUE(WIFEXITED(code));
    EXPECT_EQ(WEXITSTATUS(code), 3);
    EXPECT_EQ(testkit::ReadFile(batch.dir.File("err.txt")), "message: Import Canceled!\n");
    EXPECT_EQ(testkit::ReadFile(batch.dir.File("t.mdb")), before);
    std::set<std::string> files = batch.Files();
    files.erase("import.err");
    EXPECT_EQ(files, (std::set<std::string>{"err.txt", "out.txt", "pipe", "t.mdb"}));
}

}  // namespace
}  // namespace quillon::batch
