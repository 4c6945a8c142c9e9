// A second process for the tests of the store. It is started before the test opens a DataSet, as a fork would
// take SQLite's memory of open files along; it waits for signals, gives signals, and ends with a status or by
// being killed.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace quillon::store {

class ChildProcess {
public:
    // `body` runs in the child and gives its exit status, 0 to 255.
    explicit ChildProcess(const std::function<int(ChildProcess&)>& body) {
        if (pipe(toChild_) != 0 || pipe(toParent_) != 0) ADD_FAILURE() << "no pipe";
        pid_ = fork();
        if (pid_ == 0) _exit(body(*this));
    }
    ~ChildProcess() {
        if (pid_ > 0) Kill();
        for (const int end : {toChild_[0], toChild_[1], toParent_[0], toParent_[1]}) close(end);
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // One byte to the other side, and one from it.
    void Signal() { Put(pid_ == 0 ? toParent_[1] : toChild_[1]); }
    void Await() { Take(pid_ == 0 ? toChild_[0] : toParent_[0]); }

    void Kill() {
        kill(pid_, SIGKILL);
        Wait();
    }
    // The exit status; -1 after a signal.
    int Wait() {
        int status = 0;
        waitpid(pid_, &status, 0);
        pid_ = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    static void Put(int end) {
        const char byte = 1;
        if (write(end, &byte, 1) != 1) _exit(99);
    }
    static void Take(int end) {
        char byte = 0;
        if (read(end, &byte, 1) != 1) _exit(98);
    }

    int toChild_[2] = {-1, -1}, toParent_[2] = {-1, -1};
    pid_t pid_ = -1;
};

}  // namespace quillon::store
