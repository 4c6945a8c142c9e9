#include "batch_child.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support.h"

namespace quillon::campaign {

namespace {

constexpr double kPollSeconds = 0.002;
constexpr int kCannotRun = 98;

void Redirect(const std::string& path, int descriptor) {
    const char* target = path.empty() ? "/dev/null" : path.c_str();
    const int file = open(target, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    dup2(file, descriptor);
}

void LimitMemory(std::size_t most) {
    if (most == 0) return;
    const rlimit limit{most, most};
    setrlimit(RLIMIT_AS, &limit);
}

int Exec(const BatchOrder& order) {
    if (chdir(order.folder.c_str()) != 0) return kCannotRun;
    Sleep(order.startAfter);
    Redirect(order.errors, STDERR_FILENO);
    Redirect(order.output, STDOUT_FILENO);
    const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
    dup2(nothing, STDIN_FILENO);
    LimitMemory(order.mostMemory);
    for (const std::string& variable : order.environment) putenv(const_cast<char*>(variable.c_str()));
    std::vector<char*> argv = {const_cast<char*>(order.program.c_str())};
    for (const std::string& argument : order.arguments) argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    execv(order.program.c_str(), argv.data());
    return kCannotRun;
}

std::string ReadBack(const std::string& path) {
    return path.empty() ? "" : ReadFile(path);
}

}  // namespace

pid_t StartBatch(const BatchOrder& order) {
    return StartChild([&order] { return Exec(order); });
}

bool BatchEnd::Exited() const {
    return !hung && WIFEXITED(status);
}

int BatchEnd::Code() const {
    return Exited() ? WEXITSTATUS(status) : -1;
}

std::string BatchEnd::Text() const {
    return hung ? "hangs" : EndText(status);
}

std::string BatchEnd::WhatIsWrong() const {
    if (!Exited() || Code() > 3) return Text() + ": " + messages;
    const bool saidWhy =
        messages.find("message: ") != std::string::npos || (Code() == 2 && !messages.empty());
    return Code() == 0 || saidWhy ? "" : Text() + " without a message";
}

BatchEnd WaitForBatch(pid_t child, const BatchOrder& order, double mostSeconds) {
    BatchEnd end;
    const double latest = SecondsNow() + mostSeconds;
    while (waitpid(child, &end.status, WNOHANG) == 0) {
        if (SecondsNow() > latest) {
            end.hung = true;
            kill(child, SIGKILL);
            end.status = WaitFor(child);
            break;
        }
        Sleep(kPollSeconds);
    }
    end.output = ReadBack(order.output);
    end.messages = ReadBack(order.errors);
    return end;
}

BatchEnd RunBatch(const BatchOrder& order, double mostSeconds) {
    return WaitForBatch(StartBatch(order), order, mostSeconds);
}

}  // namespace quillon::campaign
