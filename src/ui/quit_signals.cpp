#include "ui/quit_signals.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <cerrno>

#include "ui/guard.h"

namespace quillon::ui {

namespace {

constexpr std::array kSignals = {SIGHUP, SIGINT, SIGTERM};

int ends[2] = {-1, -1};  // a pipe to the event loop: a signal handler may write, but little else

void Note(int) {
    const int before = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(ends[1], &byte, 1);
    errno = before;
}

void Handle(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : kSignals) sigaction(signal, &action, nullptr);
}

}  // namespace

QuitSignals::QuitSignals(std::function<void()> quit) : quit_(std::move(quit)) {
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
    notifier_ = new QSocketNotifier(ends[0], QSocketNotifier::Read, this);
    Connect(notifier_, &QSocketNotifier::activated, this, &QuitSignals::Take);
    Handle(Note);
}

QuitSignals::~QuitSignals() {
    if (notifier_ == nullptr) return;
    Handle(SIG_DFL);
    delete notifier_;
    for (int& end : ends) {
        close(end);
        end = -1;
    }
}

bool QuitSignals::IsWaiting() const {
    pollfd end{ends[0], POLLIN, 0};
    return notifier_ != nullptr && poll(&end, 1, 0) > 0;
}

void QuitSignals::Take() {
    std::array<char, 16> bytes;
    while (read(ends[0], bytes.data(), bytes.size()) > 0) continue;
    quit_();
}

}  // namespace quillon::ui
