// Runs quillon-batch in a child process, as a script does: in a folder, with its output in files, within
// limits on time and memory. The campaigns that work on whole jobs start them here.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace quillon::campaign {

struct BatchOrder {
    std::string program;  // the path of quillon-batch
    std::string folder;   // where it runs
    std::vector<std::string> arguments;
    std::string output, errors;            // files that take what it prints; /dev/null when empty
    std::size_t mostMemory = 0;            // bytes of address space; 0 for no limit
    double startAfter = 0;                 // seconds
    std::vector<std::string> environment;  // NAME=VALUE, added to this process's own
};

// The child; it ends with 98 when the program cannot be run.
pid_t StartBatch(const BatchOrder& order);

struct BatchEnd {
    int status = 0;     // as waitpid gives it
    bool hung = false;  // it was killed for its time
    std::string output, messages;

    bool Exited() const;
    int Code() const;  // -1 when it did not exit
    bool Succeeded() const { return Code() == 0 || Code() == 1; }
    // "exit 3", "signal 11", "hangs".
    std::string Text() const;
    // What is wrong with the end of any job: it must exit with 0 to 3, and say why when it fails. "" for
    // nothing.
    std::string WhatIsWrong() const;
};

// Waits for the child of `order`; kills it after so many seconds.
BatchEnd WaitForBatch(pid_t child, const BatchOrder& order, double mostSeconds);
BatchEnd RunBatch(const BatchOrder& order, double mostSeconds);

}  // namespace quillon::campaign
