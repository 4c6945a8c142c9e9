// Owns a file descriptor and closes it at the end of its scope. What reads or writes through it, and what a
// failure means, is the caller's.
#pragma once

#include <unistd.h>

#include <utility>

namespace quillon {

class Descriptor {
public:
    // The result of open(), which may be a failure: then nothing is closed.
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return number_; }
    bool IsOpen() const { return number_ >= 0; }
    // Leaves closing it to the caller.
    int Release() { return std::exchange(number_, -1); }

private:
    int number_;
};

}  // namespace quillon
