#include "batch/console.h"

#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "core/attempt.h"

namespace quillon::batch {

namespace {

volatile sig_atomic_t signalled = 0;

void Note(int) {
    signalled = 1;
}

bool outOfMemory = false;

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

bool ConsolePrompter::SaidOutOfMemory() {
    return outOfMemory;
}

void ConsolePrompter::Message(std::string_view text, std::string_view) {
    if (text == kNotEnoughMemory) outOfMemory = true;
    PrintMessage(text);
}

bool ConsolePrompter::AskYesNo(std::string_view text, std::string_view) {
    const bool yes = answer_ == Answer::Yes;
    std::fputs("question: ", stderr);
    PrintOnOneLine(text);
    std::fputs(yes ? " [Yes]\n" : " [No]\n", stderr);
    return yes;
}

std::optional<std::string> ConsolePrompter::FileToOpen(std::string_view, std::string_view) {
    return {};
}

std::optional<std::string> ConsolePrompter::FileToSave(std::string_view, std::string_view, bool,
                                                       std::string_view) {
    return {};
}

SignalPump::SignalPump(ApplicationState& state) : state_(state) {
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

void SignalPump::Yield() {
    if (signalled != 0) state_.gBatchCancel = true;
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
