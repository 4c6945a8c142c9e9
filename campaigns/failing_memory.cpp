// Loaded before a program's own libraries, this makes its n-th allocation fail, or all from the n-th on.
// Allocations count from the start of main(), so that the ones of libraries that are being loaded are none of
// them.
//
// QUILLON_FAIL_ALLOCATION is n, from 1, with a "+" behind it for all from then on. QUILLON_COUNT_ALLOCATIONS
// names a file that takes the number of allocations at the end.
#include <dlfcn.h>
#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdio>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* old, std::size_t size);
}

namespace {

std::atomic<bool> counting{false};
std::atomic<long> allocations{0};
long failAt = 0;
bool fromThenOn = false;

bool Fails() {
    if (!counting.load(std::memory_order_relaxed)) return false;
    const long number = ++allocations;
    if (failAt == 0) return false;
    if (fromThenOn ? number < failAt : number != failAt) return false;
    errno = ENOMEM;
    return true;
}

using Main = int (*)(int, char**, char**);
Main realMain = nullptr;

int CountedMain(int argc, char** argv, char** environment) {
    if (const char* place = getenv("QUILLON_FAIL_ALLOCATION")) {
        char* end = nullptr;
        failAt = strtol(place, &end, 10);
        fromThenOn = *end == '+';
    }
    counting = true;
    const int status = realMain(argc, argv, environment);
    counting = false;
    if (const char* path = getenv("QUILLON_COUNT_ALLOCATIONS")) {
        if (std::FILE* file = std::fopen(path, "w")) {
            std::fprintf(file, "%ld\n", allocations.load());
            std::fclose(file);
        }
    }
    return status;
}

}  // namespace

extern "C" {

void* malloc(std::size_t size) {
    return Fails() ? nullptr : __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) {
    return Fails() ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* old, std::size_t size) {
    return Fails() ? nullptr : __libc_realloc(old, size);
}

int __libc_start_main(Main start, int argc, char** argv, void (*init)(), void (*fini)(), void (*loaderFini)(),
                      void* stackEnd) {
    realMain = start;
    using Start = int (*)(Main, int, char**, void (*)(), void (*)(), void (*)(), void*);
    const auto real = reinterpret_cast<Start>(dlsym(RTLD_NEXT, "__libc_start_main"));
    return real(CountedMain, argc, argv, init, fini, loaderFini, stackEnd);
}

}  // extern "C"
