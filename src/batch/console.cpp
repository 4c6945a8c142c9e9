#include "batch/console.h"

#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <stdexcept>

#include "core/attempt.h"

namespace quillon::batch {

namespace {

volatile sig_atomic_t signalled = 0;

void Note(int) {
    signalled = 1;
}

bool outOfMemory = false;

// Output that cannot be written is a failure of the job.
[[noreturn]] void FailToPrint() {
    throw std::runtime_error(OutputFailure());
}

void PrintOnOneLine(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
        std::fputc(text[i] == '\r' || text[i] == '\n' ? ' ' : text[i], stderr);
    }
}

}  // namespace

void PrintMessage(std::string_view text, std::string_view more) {
    std::fputs("message: ", stderr);
    PrintOnOneLine(text);
    PrintOnOneLine(more);
    std::fputc('\n', stderr);
}

std::string OutputFailure() {
    return std::string("Standard output cannot be written: ") + std::strerror(errno) + ".";
}

void PrintQuestion(std::string_view text, std::string_view answer) {
    std::fputs("question: ", stderr);
    PrintOnOneLine(text);
    std::fputs(" [", stderr);
    PrintOnOneLine(answer);
    std::fputs("]\n", stderr);
}

void PrintRemark(std::string_view line) {
    PrintOnOneLine(line);
    std::fputc('\n', stderr);
}

void PrintResult(const std::string& line) {
    if (std::fwrite(line.data(), 1, line.size(), stdout) != line.size()) FailToPrint();
}

void FlushResults() {
    if (std::fflush(stdout) != 0) FailToPrint();
}

bool ConsolePrompter::SaidOutOfMemory() {
    return outOfMemory;
}

void ConsolePrompter::Message(std::string_view text, std::string_view) {
    if (text == kNotEnoughMemory) outOfMemory = true;
    PrintMessage(text);
}

bool ConsolePrompter::AskYesNo(std::string_view text, std::string_view) {
    const bool yes = answer_ == Answer::Yes;
    PrintQuestion(text, yes ? "Yes" : "No");
    return yes;
}

std::optional<std::string> ConsolePrompter::FileToOpen(std::string_view, std::string_view) {
    return {};
}

std::optional<std::string> ConsolePrompter::FileToSave(std::string_view, std::string_view, bool,
                                                       std::string_view) {
    return {};
}

void WatchSignals() {
    struct sigaction action {};
    action.sa_handler = Note;
    sigset_t taken;
    sigemptyset(&taken);
    for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
        sigaction(signal, &action, nullptr);
        sigaddset(&taken, signal);
    }
    sigprocmask(SIG_UNBLOCK, &taken, nullptr);  // the parent process may have blocked them
}

bool IsSignalled() {
    return signalled != 0;
}

SignalPump::SignalPump(ApplicationState& state) : state_(state) {
    WatchSignals();
}

void SignalPump::Yield() {
    if (IsSignalled()) state_.gBatchCancel = true;
}

ProgressLine::ProgressLine(bool wanted) : drawn_(wanted && isatty(STDERR_FILENO) == 1) {}

ProgressLine::~ProgressLine() {
    if (drawn_ && last_ >= 0) std::fprintf(stderr, "\n");
}

void ProgressLine::Show(double percent) {
    const int whole = static_cast<int>(percent);
    if (!drawn_ || whole == last_) return;
    last_ = whole;
    std::fprintf(stderr, "\r%3d%%", whole);
    std::fflush(stderr);
}

}  // namespace quillon::batch
