// A signal that asks quillon-batch to end cancels the job, which leaves everything as it was.
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "batch_fixture.h"

namespace quillon::batch {
namespace {

class Signals : public testing::TestWithParam<int> {
protected:
    // Runs quillon-batch with the signal pending: it arrives as soon as the program takes signals.
    Ended RunSignalled(std::vector<const char*> words) const {
        const pid_t child = fork();
        if (child == 0) {
            sigset_t blocked;
            sigemptyset(&blocked);
            sigaddset(&blocked, GetParam());
            sigprocmask(SIG_BLOCK, &blocked, nullptr);
            raise(GetParam());
            std::filesystem::current_path(batch.dir.path());
            words.insert(words.begin(), "quillon-batch");
            words.push_back(nullptr);
            if (freopen("err.txt", "w", stderr) != nullptr)
                execv(QUILLON_BATCH, const_cast<char* const*>(words.data()));
            _exit(9);
        }
        int code = 0;
        waitpid(child, &code, 0);
        return {WIFEXITED(code) ? WEXITSTATUS(code) : -1, "", testkit::ReadFile(batch.dir.File("err.txt"))};
    }
    // Sends the signal once the file that becomes the DataSet is there. Returns the exit status.
    int SignalWhileNewWrites() const {
        const pid_t child = fork();
        if (child == 0) {
            std::filesystem::current_path(batch.dir.path());
            if (freopen("err.txt", "w", stderr) != nullptr)
                execl(QUILLON_BATCH, "quillon-batch", "new", "t.mdb", "--kingdom", "Animalia", nullptr);
            _exit(9);
        }
        int code = 0;
        pid_t ended = 0;
        while (Files().empty() && ended == 0) ended = waitpid(child, &code, WNOHANG);
        if (ended == 0) {
            kill(child, GetParam());
            waitpid(child, &code, 0);
        }
        return WIFEXITED(code) ? WEXITSTATUS(code) : -1;
    }
    std::set<std::string> Files() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(batch.dir.path())) {
            const std::string name = entry.path().filename().string();
            if (name != "err.txt" && name != "out.txt" && !name.ends_with(".log")) names.insert(name);
        }
        return names;
    }

    Batch batch;
};

TEST_P(Signals, NewMakesNothing) {
    const Ended ended = RunSignalled({"new", "t.mdb", "--kingdom", "Animalia"});
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(ended.err, "message: Canceled.\n");
    EXPECT_EQ(Files(), std::set<std::string>{});
}

TEST_P(Signals, NewLeavesNothingOfWhatItHasWritten) {
    for (int attempt = 0; attempt < 50; ++attempt) {
        const int status = SignalWhileNewWrites();
        if (status == 0) {  // it was finished before the signal came
            std::filesystem::remove(batch.dir.File("t.mdb"));
            continue;
        }
        EXPECT_EQ(status, 3);
        EXPECT_EQ(testkit::ReadFile(batch.dir.File("err.txt")), "message: Canceled.\n");
        EXPECT_EQ(Files(), std::set<std::string>{});
        return;
    }
    FAIL() << "no signal came in time";
}

TEST_P(Signals, ExportLeavesTheTargetAsItWas) {
    batch.Run("new t.mdb --kingdom Animalia");
    testkit::WriteFile(batch.dir.File("in.qln"), kTwoTaxa);
    ASSERT_EQ(batch.Run("import t.mdb in.qln").status, 0);
    testkit::WriteFile(batch.dir.File("names.exp"), "as it was");
    const std::set<std::string> before = Files();
    const Ended ended = RunSignalled({"export", "t.mdb", "names.exp", "--yes"});
    EXPECT_EQ(ended.status, 3);
    EXPECT_NE(ended.err.find("Canceled"), std::string::npos) << ended.err;
    EXPECT_EQ(testkit::ReadFile(batch.dir.File("names.exp")), "as it was");
    EXPECT_EQ(Files(), before);
}

INSTANTIATE_TEST_SUITE_P(Ending, Signals, testing::Values(SIGHUP, SIGINT, SIGTERM));

}  // namespace
}  // namespace quillon::batch
