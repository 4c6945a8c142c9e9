// Scripts of saves, deletions and author clean-ups that are killed: each record must be as it was before its
// command or as it is after, with its links, the journal and the tombstones.
#include <fmt/format.h>
#include <signal.h>

#include <algorithm>

#include "batch_child.h"
#include "content.h"
#include "disk_log.h"
#include "kill_jobs.h"

namespace quillon::campaign {

namespace {

constexpr int kCycles = 6;
constexpr double kMostSeconds = 60;

// A word without digits, as an epithet is.
std::string Epithet(int number) {
    return std::string("nova") + static_cast<char>('a' + number / 26) + static_cast<char>('a' + number % 26);
}

std::string AddSpecies(int number) {
    return fmt::format(
        "click mnuAdd\nset cboRank Species\nset cboName1 Balaenoptera\nset txtName2 {0}\noption optValid\n"
        "set cboDPRank Genus\nset cboParentName Balaenoptera\nset cboAuth Author of {0}, 2024\n"
        "set txtVName whale {0}\nset cboLanguage English\nclick cmdVAdd\ncheck chkEastPacific on\n"
        "set cboMexico Native\nset cboVernPubSelect Both\nset cboVernPub whale {0} [English]\n"
        "set cboAuthor Author of {0}\nset cboADate 2024\nset cboTitle Title {0}\nset cboPublication Journal\n"
        "click cmdPubAdd\nclick cmdOK\n",
        Epithet(number));
}

std::string ChangeIt(int number) {
    return fmt::format(
        "select last\nset cboAuth Another of {0}, 2025\nrow grdVernacular 1\nset txtVName other {0}\n"
        "click cmdVModify\ncheck chkEastPacific off\ncheck chkAfrica on\nclick cmdOK\n",
        Epithet(number));
}

// Each is one command that changes the DataSet.
std::vector<std::string> Steps() {
    std::vector<std::string> steps = {
        "select 90\noption optInvalid\nset cboInvalidReason junior synonym\nclick cmdOK\n",
    };
    for (int cycle = 0; cycle < kCycles; ++cycle) {
        steps.push_back(AddSpecies(2 * cycle));
        steps.push_back(ChangeIt(2 * cycle));
        steps.push_back(AddSpecies(2 * cycle + 1));
        steps.push_back("select last\nanswer Yes\nclick mnuEDelete\n");
        steps.push_back(
            fmt::format("click mnuAuth\nset TxtLower Another of {0}*\nitems LstToFix 1\n"
                        "set cboReplace Cleaned {0}, 2026\nanswer OK\nclick CmdFix\n"
                        "click CmdClose\n",
                        Epithet(2 * cycle)));
    }
    return steps;
}

class ScriptKiller {
public:
    ScriptKiller(const Folder& folder, const std::string& program, Violations& violations)
        : work_(folder.File("script")), violations_(violations) {
        order_.program = program;
        order_.folder = work_;
        order_.errors = folder.File("script.errors");
        WriteFolder(work_, {});
        Expect({"new", "set.mdb", "--kingdom", "Animalia"});
        Expect({"import", "set.mdb", QUILLON_SAMPLE});
        before_ = {{"set.mdb", ReadFile(DataSet())}};
        std::string script;
        TakeState();
        for (const std::string& step : Steps()) {
            script += step;
            Play(script);
            TakeState();
        }
        before_["steps.txt"] = script;
    }

    void KillOne(double moment) {
        const std::string what = fmt::format("script {}", ++killed_);
        WriteFolder(work_, before_);
        const pid_t child = StartBatch(order_);
        Sleep(moment * seconds_);
        kill(child, SIGKILL);
        const BatchEnd end = WaitForBatch(child, order_, kMostSeconds);
        if (end.hung) violations_.Add(what + ": hangs");
        if (const std::string check = CheckOfFile(DataSet()); check != "ok")
            return violations_.Add(fmt::format("{}: the full check says {}", what, check));
        const auto found = std::find(states_.begin(), states_.end(), ContentOf(DataSet()));
        if (found == states_.end())
            return violations_.Add(what + ": a record is neither as before nor as after");
        if (found != states_.begin() && found + 1 != states_.end()) ++within_;
    }
    void Print() const {
        fmt::print("scripts killed: {}, {} of them between their first and their last command\n", killed_,
                   within_);
    }

private:
    std::string DataSet() const { return work_ + "/set.mdb"; }
    void Expect(const std::vector<std::string>& arguments) {
        order_.arguments = arguments;
        const BatchEnd end = RunBatch(order_, kMostSeconds);
        if (!end.Succeeded()) throw std::runtime_error(end.messages);
    }
    // From the DataSet as it was, so that each state has been reached by all commands before it.
    void Play(const std::string& script) {
        WriteFolder(work_, before_);
        WriteFile(work_ + "/steps.txt", script);
        const double start = SecondsNow();
        Expect({"script", "set.mdb", "steps.txt"});
        seconds_ = SecondsNow() - start;
    }
    void TakeState() {
        std::string state = ContentOf(DataSet());
        if (!states_.empty() && state == states_.back())
            throw std::runtime_error(
                fmt::format("the command {} of the script changed nothing", states_.size()));
        states_.push_back(std::move(state));
    }

    std::string work_;
    Violations& violations_;
    BatchOrder order_;
    FolderContent before_;
    std::vector<std::string> states_;
    double seconds_ = 0;
    std::size_t killed_ = 0, within_ = 0;
};

}  // namespace

void KillScripts(std::size_t count, const std::string& program, const Folder& folder, Random& random,
                 Violations& violations) {
    if (count == 0) return;
    ScriptKiller killer(folder, program, violations);
    for (std::size_t i = 0; i < count; ++i) killer.KillOne(UniformBelow(random, 1));
    killer.Print();
}

}  // namespace quillon::campaign
